#include "Kestrel/keys/CUserWatch.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/player/PanelAccess.h"
#include "controlhost/IControlHost.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QWidget>

namespace {

constexpr int nLookAgainMs = 100;

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Drop: // the release that ends a drag reaches nobody
        return true;
    default:
        return false;
    }
}

} // namespace

CUserWatch::CUserWatch(IControlHost& controlHost)
{
    Q_ASSERT(GuiThread::IsCurrent());
    connect(this, &CUserWatch::EditingChanged, &controlHost, &IControlHost::SetUserEditing);
    connect(this, &CUserWatch::ActingChanged, &controlHost, &IControlHost::SetUserActing);
    connect(this, &CUserWatch::InputNoted, &controlHost, &IControlHost::NoteUserInput);
    timer.setInterval(nLookAgainMs);
    connect(&timer, &QTimer::timeout, this, &CUserWatch::UpdateActing);
    qApp->installEventFilter(this);
}

bool CUserWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (IsInput(event->type())) {
        emit InputNoted();
    }
    WatchEditor(watched, event->type());
    if (watched->isWindowType()) { // the widgets of a window come and go under a drag
        WatchDrag(event);
    }
    UpdateActing();
    return false;
}

// Closed by its hiding, which follows the commit, rather than by the focus, which precedes it. An editor
// that stays on the screen without the focus is looked at once the focus has found its new place.
void CUserWatch::WatchEditor(QObject* pWatched, QEvent::Type type)
{
    if ((type == QEvent::Show || type == QEvent::FocusIn) && PanelAccess::IsRowEditor(pWatched)) {
        connect(pWatched, &QObject::destroyed, this, &CUserWatch::LoseEditor, Qt::UniqueConnection);
        SetEditor(pWatched);
    } else if (type == QEvent::Hide) {
        LoseEditor(pWatched);
    } else if (type == QEvent::FocusOut && pWatched == pEditor) {
        QMetaObject::invokeMethod(this, &CUserWatch::CheckFocus, Qt::QueuedConnection);
    }
}

void CUserWatch::SetEditor(QObject* pNew)
{
    const bool bBefore = pEditor;
    const bool bNow = pNew;
    pEditor = pNew;
    if (bNow != bBefore) {
        emit EditingChanged(bNow);
    }
}

void CUserWatch::LoseEditor(QObject* pLost)
{
    if (pLost == pEditor) {
        SetEditor(nullptr);
    }
}

void CUserWatch::CheckFocus()
{
    if (pEditor != QApplication::focusWidget()) {
        SetEditor(nullptr);
    }
}

void CUserWatch::WatchDrag(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        bDragHere = true;
        FollowDrag(static_cast<const QDropEvent*>(event));
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::MouseMove: // as a mouse again: a drag from elsewhere has ended without a word
        bDragHere = false;
        break;
    default:
        break;
    }
}

// A drag's object is a child of the widget where it began, and lives as long as the drag.
void CUserWatch::FollowDrag(const QDropEvent* event)
{
    if (!pDrag && event->source()) {
        pDrag = event->source()->findChild<QDrag*>(QString(), Qt::FindDirectChildrenOnly);
    }
}

// At every event anew and from what is so, since a release may be swallowed, by a drag as by a menu; and
// by the timer, since nothing at all may come after it.
void CUserWatch::UpdateActing()
{
    const bool bDrag = bDragHere || pDrag;
    const bool bNow = QGuiApplication::mouseButtons() != Qt::NoButton || bDrag || QApplication::activePopupWidget();
    if (bNow == bActing) {
        return;
    }
    bActing = bNow;
    bNow ? timer.start() : timer.stop();
    emit ActingChanged(bNow);
}
