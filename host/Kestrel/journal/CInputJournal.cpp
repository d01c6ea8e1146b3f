#include "Kestrel/journal/CInputJournal.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/journal/UserLine.h"
#include "Kestrel/journal/WidgetPath.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QShortcut>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int nRoleNodeId = Qt::UserRole + 1;   ///< of the panel's rows: the id of the node
constexpr int nRoleNodeType = Qt::UserRole + 2; ///< of the panel's rows: its kind

QWidget* FindWidget(QObject* pObject)
{
    if (auto* pWidget = qobject_cast<QWidget*>(pObject)) {
        return pWidget;
    }
    const QWidgetList listWindow = QApplication::topLevelWidgets();
    for (QWidget* pWindow : listWindow) {
        if (pWindow->windowHandle() == pObject) {
            return pWindow;
        }
    }
    return nullptr;
}

QModelIndex FindRow(QWidget* pWidget, QWidget* pWindow, const QPoint& pos)
{
    const auto* pView = pWidget ? qobject_cast<QAbstractItemView*>(pWidget->parentWidget()) : nullptr;
    return pView && pView->viewport() == pWidget ? pView->indexAt(pWidget->mapFrom(pWindow, pos)) : QModelIndex();
}

// What the program has sent itself, as when one key stands for another.
void AddSender(std::vector<SJournalField>& vecField, const QEvent& event)
{
    if (!event.spontaneous()) {
        vecField.push_back({ "sent", true });
    }
}

void AddRow(std::vector<SJournalField>& vecField, const QModelIndex& index)
{
    if (index.isValid()) {
        vecField.push_back({ "row", index.data(nRoleNodeId).toUuid() });
        vecField.push_back({ "rowType", qint64(index.data(nRoleNodeType).toInt()) });
    }
}

// Where an open menu leads to is chosen by moving over it.
bool IsIdleMove(const QEvent* event)
{
    return event->type() == QEvent::MouseMove && static_cast<const QMouseEvent*>(event)->buttons() == Qt::NoButton
        && !QApplication::activePopupWidget();
}

// By its text, or by the key where a release or a platform brings none.
bool IsTyped(const QKeyEvent& event)
{
    const QString strText = event.text();
    const bool bPrints = std::any_of(strText.begin(), strText.end(), [](QChar ch) { return ch.isPrint(); });
    const bool bCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return bPrints || (event.key() < Qt::Key_Escape && !bCommand);
}

} // namespace

CInputJournal::CInputJournal(ICallRecorder& recorderIn, bool bMaskIn) : recorder(recorderIn), bMask(bMaskIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &CInputJournal::WriteActive);
}

bool CInputJournal::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        HandleInput(watched, event);
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        WriteDrag(event->type() == QEvent::Drop ? "drop" : "drag", watched, event);
        break;
    case QEvent::DragLeave:
        WriteDragLeft(watched);
        break;
    case QEvent::Shortcut:
        WriteShortcut(watched, event);
        break;
    case QEvent::ContextMenu:
        WriteContextMenu(watched, event);
        break;
    case QEvent::InputMethod:
        WriteComposed(watched, event);
        break;
    default:
        break;
    }
    return false;
}

void CInputJournal::HandleInput(QObject* pWatched, QEvent* event)
{
    const auto* pInput = static_cast<QInputEvent*>(event);
    if (IsIdleMove(event) || !FindWidget(pWatched) || !IsNew(pWatched, *pInput)) {
        return;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        WriteKey("key press", pWatched, *static_cast<QKeyEvent*>(event));
        break;
    case QEvent::KeyRelease:
        WriteKey("key release", pWatched, *static_cast<QKeyEvent*>(event));
        break;
    case QEvent::MouseButtonPress:
        WriteMouse("press", pWatched, event);
        break;
    case QEvent::MouseButtonRelease:
        WriteMouse("release", pWatched, event);
        break;
    case QEvent::MouseButtonDblClick:
        WriteMouse("double click", pWatched, event);
        break;
    case QEvent::MouseMove:
        WriteMouse("move", pWatched, event);
        break;
    default:
        WriteWheel(pWatched, event);
    }
}

// A window hands what it got on to a widget, and a widget that does not want it to its parent, with the same time. What
// programs send, straight to a widget, has no time or one of its own.
bool CInputJournal::IsNew(const QObject* pWatched, const QInputEvent& event)
{
    const bool bAtWindow = pWatched->isWindowType();
    const bool bHandedOn
        = !bAtWindow && event.type() == lastType && event.timestamp() == nLastTime && (bLastAtWindow || nLastTime != 0);
    lastType = event.type();
    nLastTime = event.timestamp();
    bLastAtWindow = bAtWindow || (bHandedOn && bLastAtWindow);
    return !bHandedOn;
}

// Where a screen reader listens, Qt asks it first and then sends the key to the window itself: the key is the user's all the
// same. Programs send keys to widgets.
void CInputJournal::WriteKey(const char* szDo, QObject* pWatched, const QKeyEvent& event)
{
    QWidget* pWindow = FindWidget(pWatched);
    const bool bAtWindow = pWatched->isWindowType();
    STarget target;
    target.pWindow = pWindow->window();
    target.pWidget = QApplication::focusWidget() ? QApplication::focusWidget() : pWindow;
    std::vector<SJournalField> vecField = GetKeyFields(target);
    const bool bHidden = bMask && IsTyped(event);
    vecField.push_back({ "key", qint64(bHidden ? Qt::Key_unknown : event.key()) });
    vecField.push_back({ "text", bHidden ? QString() : event.text() });
    vecField.push_back({ "modifiers", qint64(event.modifiers()) });
    vecField.push_back({ "repeat", event.isAutoRepeat() });
    vecField.push_back({ "time", qint64(event.timestamp()) });
    if (!bAtWindow) {
        AddSender(vecField, event);
    }
    const bool bTakesText = qobject_cast<QLineEdit*>(target.pWidget);
    if (bTakesText && event.type() == QEvent::KeyPress && event.matches(QKeySequence::Paste)) {
        vecField.push_back({ "pasted", SPrivateText(QGuiApplication::clipboard()->text(), PrivateText) });
    }
    UserLine::Write(recorder, szDo, std::move(vecField));
}

void CInputJournal::WriteMouse(const char* szDo, QObject* pWatched, QEvent* event)
{
    const auto* pMouse = static_cast<QMouseEvent*>(event);
    std::vector<SJournalField> vecField = GetFields(FindTarget(pWatched, pMouse->pos()));
    vecField.push_back({ "button", qint64(pMouse->button()) });
    vecField.push_back({ "buttons", qint64(pMouse->buttons()) });
    vecField.push_back({ "modifiers", qint64(pMouse->modifiers()) });
    AddSender(vecField, *pMouse);
    UserLine::Write(recorder, szDo, std::move(vecField));
}

void CInputJournal::WriteWheel(QObject* pWatched, QEvent* event)
{
    const auto* pWheel = static_cast<QWheelEvent*>(event);
    std::vector<SJournalField> vecField = GetFields(FindTarget(pWatched, pWheel->position().toPoint()));
    vecField.push_back({ "dx", qint64(pWheel->angleDelta().x()) });
    vecField.push_back({ "dy", qint64(pWheel->angleDelta().y()) });
    vecField.push_back({ "modifiers", qint64(pWheel->modifiers()) });
    UserLine::Write(recorder, "wheel", std::move(vecField));
}

// At the window alone: its widgets come and go under a drag.
void CInputJournal::WriteDrag(const char* szDo, QObject* pWatched, QEvent* event)
{
    if (!pWatched->isWindowType() || !FindWidget(pWatched)) {
        return;
    }
    const auto* pDrop = static_cast<QDropEvent*>(event);
    std::vector<SJournalField> vecField = GetFields(FindTarget(pWatched, pDrop->pos()));
    vecField.push_back({ "formats", pDrop->mimeData() ? pDrop->mimeData()->formats() : QStringList() });
    UserLine::Write(recorder, szDo, std::move(vecField));
}

// It is cancelled, or the pointer is over another window: the keys and the mouse of a drag reach nobody.
void CInputJournal::WriteDragLeft(QObject* pWatched)
{
    if (pWatched->isWindowType() && FindWidget(pWatched)) {
        UserLine::Write(recorder, "drag left", { { "window", WidgetPath::Get(FindWidget(pWatched)) } });
    }
}

// The key press behind it reaches nobody else. What an entry would undo may have a name.
void CInputJournal::WriteShortcut(QObject* pWatched, QEvent* event)
{
    const QString strKey = static_cast<QShortcutEvent*>(event)->key().toString(QKeySequence::PortableText);
    const auto* pAction = qobject_cast<QAction*>(pWatched);
    const QString strEntry = pAction ? pAction->text() : QString();
    UserLine::Write(recorder, "shortcut",
                    { { "window", WidgetPath::Get(QApplication::activeWindow()) },
                      { "target", WidgetPath::Get(qobject_cast<QWidget*>(pWatched)) },
                      { "keys", strKey },
                      { "entry", SPrivateText(strEntry, PrivateText) } });
}

// By its key, which may come after it.
void CInputJournal::WriteContextMenu(QObject* pWatched, QEvent* event)
{
    const auto reason = static_cast<QContextMenuEvent*>(event)->reason();
    QWidget* pWindow = pWatched->isWindowType() ? FindWidget(pWatched) : nullptr;
    if (pWindow && reason == QContextMenuEvent::Keyboard) {
        STarget target;
        target.pWindow = pWindow;
        target.pWidget = QApplication::focusWidget() ? QApplication::focusWidget() : pWindow;
        UserLine::Write(recorder, "context menu", GetKeyFields(target));
    }
}

// What an input method puts together comes without keys.
void CInputJournal::WriteComposed(QObject* pWatched, QEvent* event)
{
    const QString strText = static_cast<QInputMethodEvent*>(event)->commitString();
    if (const QWidget* pWidget = strText.isEmpty() ? nullptr : FindWidget(pWatched)) {
        UserLine::Write(recorder, "composed",
                        { { "window", WidgetPath::Get(pWidget->window()) },
                          { "target", WidgetPath::Get(pWidget) },
                          { "text", SPrivateText(strText, PrivateText) } });
    }
}

void CInputJournal::WriteActive(QWindow* pActive)
{
    UserLine::Write(recorder, "active", { { "window", WidgetPath::Get(pActive ? FindWidget(pActive) : nullptr) } });
}

CInputJournal::STarget CInputJournal::FindTarget(QObject* pWatched, const QPoint& pos)
{
    QWidget* pWidget = FindWidget(pWatched);
    STarget target;
    target.pWindow = pWidget->window();
    target.pos = pWidget->mapTo(target.pWindow, pos);
    QWidget* pUnder = target.pWindow->childAt(target.pos);
    target.pWidget = pWidget->isWindow() && pUnder ? pUnder : pWidget;
    return target;
}

std::vector<SJournalField> CInputJournal::GetKeyFields(const STarget& target)
{
    std::vector<SJournalField> vecField{ { "window", WidgetPath::Get(target.pWindow) },
                                         { "target", WidgetPath::Get(target.pWidget) } };
    if (const auto* pView = qobject_cast<QAbstractItemView*>(target.pWidget)) {
        AddRow(vecField, pView->currentIndex());
    }
    return vecField;
}

std::vector<SJournalField> CInputJournal::GetFields(const STarget& target)
{
    std::vector<SJournalField> vecField{ { "window", WidgetPath::Get(target.pWindow) },
                                         { "target", WidgetPath::Get(target.pWidget) },
                                         { "x", qint64(target.pos.x()) },
                                         { "y", qint64(target.pos.y()) } };
    AddRow(vecField, FindRow(target.pWidget, target.pWindow, target.pos));
    if (const auto* pMenu = qobject_cast<QMenu*>(target.pWidget)) {
        QAction* pEntry = pMenu->actionAt(pMenu->mapFrom(target.pWindow, target.pos));
        vecField.push_back({ "number", qint64(pMenu->actions().indexOf(pEntry)) });
    }
    return vecField;
}
