#pragma once

#include <QEvent>

class QAbstractScrollArea;
class QWidget;

/// For a widget that lies over the viewport of a view: a drag means the view, not what covers it.
namespace DragRelay {

/// True for what a drag sends to the widget under it: enter, move, leave and drop.
bool IsDrag(QEvent::Type type);

/// Hands a drag's event that has reached pCover on to the viewport of pArea, at the same place of the screen,
/// and takes the view's answer and its action over into event. A view that accepts no drops is not asked
/// about a drag that enters. After a drop both may be gone.
void Pass(QEvent* event, const QWidget* pCover, QAbstractScrollArea* pArea);

} // namespace DragRelay
