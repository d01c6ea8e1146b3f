#include "CommonComponent/DragRelay.h"

#include <QAbstractScrollArea>
#include <QDropEvent>

namespace {

/// Opens what a view does with the events of its viewport.
class CViewportAccess : public QAbstractScrollArea // clazy:exclude=missing-qobject-macro
{
public:
    using QAbstractScrollArea::viewportEvent;
};

// Not by sendEvent(): the application hands a drag's events to the widget that accepted its entry, whomever they
// are sent to. That is the one on top, which would pass them on for ever.
void SendToViewport(QAbstractScrollArea* pArea, QEvent* event)
{
    (pArea->*(&CViewportAccess::viewportEvent))(event);
}

void PassPlaced(QDropEvent* event, QDropEvent&& placed, QAbstractScrollArea* pArea)
{
    placed.setDropAction(event->dropAction());
    placed.setAccepted(event->isAccepted());
    SendToViewport(pArea, &placed);
    event->setDropAction(placed.dropAction());
    event->setAccepted(placed.isAccepted());
}

void PassAt(const QPoint& pt, QDropEvent* event, QAbstractScrollArea* pArea)
{
    const Qt::DropActions actions = event->possibleActions();
    const QMimeData* pData = event->mimeData();
    const Qt::MouseButtons buttons = event->mouseButtons();
    const Qt::KeyboardModifiers modifiers = event->keyboardModifiers();
    if (event->type() == QEvent::DragEnter) {
        PassPlaced(event, QDragEnterEvent(pt, actions, pData, buttons, modifiers), pArea);
    } else if (event->type() == QEvent::DragMove) {
        PassPlaced(event, QDragMoveEvent(pt, actions, pData, buttons, modifiers), pArea);
    } else {
        PassPlaced(event, QDropEvent(pt, actions, pData, buttons, modifiers), pArea);
    }
}

} // namespace

bool DragRelay::IsDrag(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::DragLeave || type == QEvent::Drop;
}

void DragRelay::Pass(QEvent* event, const QWidget* pCover, QAbstractScrollArea* pArea)
{
    const QWidget* pViewport = pArea->viewport();
    if (event->type() == QEvent::DragEnter && !pViewport->acceptDrops()) {
        return; // unanswered, so the drag's other events do not come
    }
    if (event->type() == QEvent::DragLeave) {
        SendToViewport(pArea, event);
        return;
    }
    auto* pPlaced = static_cast<QDropEvent*>(event);
    PassAt(pViewport->mapFromGlobal(pCover->mapToGlobal(pPlaced->pos())), pPlaced, pArea);
}
