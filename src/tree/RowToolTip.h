#pragma once

class QModelIndex;
class QPoint;
class QString;

/// The tip for a place in a row, from what painting has left in the row's item.
namespace RowToolTip {

/// pos is in the coordinates of the viewport. Empty when there is nothing to say, as for no row.
QString GetText(const QModelIndex& index, const QPoint& pos);

/// Shows that tip under the mouse, at once or after a short delay, and hides the last one where there is none.
/// GUI thread.
void Show(const QModelIndex& index, const QPoint& pos, bool bDelay);

} // namespace RowToolTip
