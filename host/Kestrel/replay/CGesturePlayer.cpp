#include "Kestrel/replay/CGesturePlayer.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/journal/WidgetPath.h"
#include "Kestrel/replay/CScreenFollower.h"
#include "Kestrel/replay/PlainDrag.h"
#include "journal/replay/SRecordedLine.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>
#include <array>

namespace {

constexpr ulong nTimeToNextMs = 100000; ///< no double click comes of presses that are that far apart
constexpr char szMaskedText[] = "1";    ///< in place of a key that is masked: each field takes a digit

QString GetText(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toString();
}

int GetNumber(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toInt();
}

Qt::KeyboardModifiers GetModifiers(const SRecordedLine& line)
{
    return Qt::KeyboardModifiers(GetNumber(line, "modifiers"));
}

WindowInput::SKey GetKey(const SRecordedLine& line)
{
    WindowInput::SKey key;
    key.type = line.strOperation == QLatin1String("key press") ? QEvent::KeyPress : QEvent::KeyRelease;
    key.nKey = GetNumber(line, "key");
    key.modifiers = GetModifiers(line);
    key.strText = GetText(line, "text");
    key.bRepeat = line.fields.value(QLatin1String("repeat")).toBool();
    if (key.nKey == Qt::Key_unknown && key.strText.isEmpty()) {
        key.nKey = Qt::Key_1;
        key.strText = QLatin1String(szMaskedText);
    }
    return key;
}

// What the program sent when it was recorded, it sends now. A drag sends the release that has ended it.
bool IsConsequence(const SRecordedLine& line)
{
    const bool bEndsDrag = line.strOperation == QLatin1String("release") && PlainDrag::IsRunning();
    return line.fields.value(QLatin1String("sent")).toBool() && !bEndsDrag;
}

QString GetMissing(const SRecordedLine& line)
{
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    if (!place.pWindow) {
        return QStringLiteral("the window %1 is not there").arg(GetText(line, "window"));
    }
    return place.pTarget ? QString() : QStringLiteral("%1 is not there").arg(GetText(line, "target"));
}

} // namespace

CGesturePlayer::CGesturePlayer(QMainWindow& windowIn, CScreenFollower& followerIn, const FnNode& fnNodeIn)
    : window(windowIn), follower(followerIn), fnNode(fnNodeIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    PlainDrag::Install();
    window.installEventFilter(this);
}

bool CGesturePlayer::IsFor(const SRecordedLine& line)
{
    return FindOperation(line) != nullptr;
}

void CGesturePlayer::Begin(const SRecordedLine& line)
{
    PlayActive(line);
    QWidget* pTarget = SGesturePlace::Find(line.fields).pTarget;
    if (pTarget && line.strOperation == QLatin1String("key press")) {
        pTarget->setFocus();
    }
}

void CGesturePlayer::Prepare() const
{
    QWidget* pActive = WidgetPath::Find(strActive);
    const bool bHeld = PlainDrag::IsRunning() || QApplication::activePopupWidget() || QApplication::activeModalWidget();
    if (!bHeld && pActive && pActive->windowHandle() != QGuiApplication::focusWindow()) {
        WindowInput::Activate(pActive);
    }
}

QString CGesturePlayer::FindObstacle(const SRecordedLine& line) const
{
    const bool bFree
        = IsConsequence(line) || follower.IsAway(line) || follower.IsForeignMenuKey(line) || follower.IsBehindMenu(line);
    return bFree ? QString() : (this->*FindOperation(line)->fnFind)(line);
}

bool CGesturePlayer::Play(const SRecordedLine& line, bool bDouble)
{
    const QAction* pAction = FindAction(line);
    const bool bMissing = pAction && follower.IsMissing(*pAction);
    const bool bAway = follower.IsAway(line);
    if (!bAway && !line.strOperation.endsWith(QLatin1String("release"))) {
        follower.ExpectMissing(bMissing);
    }
    bDoubleClick = bDouble;
    if (!bMissing && !IsConsequence(line) && !bAway && !follower.IsForeignMnemonic(line)) {
        (this->*FindOperation(line)->fnPlay)(line);
    }
    return !bMissing;
}

bool CGesturePlayer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close && watched == &window) {
        ++nCloses;
        emit Closing();
    }
    return false;
}

const CGesturePlayer::SOperation* CGesturePlayer::FindOperation(const SRecordedLine& line)
{
    using Player = CGesturePlayer;
    static const std::array<SOperation, 14> listOperation{ {
        { QLatin1String("key press"), &Player::FindKeyFault, &Player::PlayKey },
        { QLatin1String("key release"), &Player::FindNothing, &Player::PlayKey },
        { QLatin1String("press"), &Player::FindMouseFault, &Player::PlayPress },
        { QLatin1String("release"), &Player::FindNothing, &Player::PlayRelease },
        { QLatin1String("double click"), &Player::FindNothing, &Player::PlayNothing }, // Qt makes it of the second press
        { QLatin1String("move"), &Player::FindNothing, &Player::PlayMove },
        { QLatin1String("wheel"), &Player::FindMouseFault, &Player::PlayWheel },
        { QLatin1String("drag"), &Player::FindDragFault, &Player::PlayDrag },
        { QLatin1String("drop"), &Player::FindDragFault, &Player::PlayDrop },
        { QLatin1String("shortcut"), &Player::FindShortcutFault, &Player::PlayShortcut },
        { QLatin1String("context menu"), &Player::FindKeyFault, &Player::PlayContextMenu },
        { QLatin1String("composed"), &Player::FindKeyFault, &Player::PlayComposed },
        { QLatin1String("active"), &Player::FindNothing, &Player::PlayActive },
        { QLatin1String("close"), &Player::FindNothing, &Player::PlayClose },
    } };
    const auto isNamed = [&line](const SOperation& operation) { return operation.strName == line.strOperation; };
    const auto it = std::find_if(listOperation.begin(), listOperation.end(), isNamed);
    return it == listOperation.end() ? nullptr : it;
}

bool CGesturePlayer::IsRowAwaited(const SRecordedLine& line) const
{
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    const QUuid idWanted = GetNode(line);
    const bool bKey = FindOperation(line)->fnFind == &CGesturePlayer::FindKeyFault;
    return bKey && place.pWindow && place.GetCurrentRow() != idWanted && !place.IsSelected(idWanted);
}

QString CGesturePlayer::FindNothing(const SRecordedLine&) const
{
    return {};
}

QString CGesturePlayer::FindKeyFault(const SRecordedLine& line) const
{
    const QString strMissing = GetMissing(line);
    if (!strMissing.isEmpty()) {
        return strMissing;
    }
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    const QWidget* pFocus = QApplication::focusWidget() ? QApplication::focusWidget() : place.pWindow;
    if (pFocus != place.pTarget) {
        return QStringLiteral("the key that went to %1 now goes to %2").arg(GetText(line, "target"), WidgetPath::Get(pFocus));
    }
    return {};
}

QString CGesturePlayer::FindMouseFault(const SRecordedLine& line) const
{
    const QString strMissing = GetMissing(line);
    return strMissing.isEmpty() ? GetRowFault(line, SGesturePlace::Find(line.fields).OnTarget().GetRow()) : strMissing;
}

QString CGesturePlayer::FindDragFault(const SRecordedLine& line) const
{
    return PlainDrag::IsRunning() ? FindMouseFault(line) : QStringLiteral("nothing is being dragged");
}

QString CGesturePlayer::FindShortcutFault(const SRecordedLine& line) const
{
    const QAction* pAction = FindAction(line);
    const bool bOff = pAction && !pAction->isEnabled();
    return bOff ? QStringLiteral("the entry \"%1\" cannot be chosen").arg(GetText(line, "entry")) : QString();
}

// The node of the recorded row, by its id of today.
QUuid CGesturePlayer::GetNode(const SRecordedLine& line) const
{
    const QUuid idRecorded(GetText(line, "row"));
    return idRecorded.isNull() ? idRecorded : fnNode(idRecorded);
}

QString CGesturePlayer::GetRowFault(const SRecordedLine& line, const QUuid& idNow) const
{
    const QUuid idWanted = GetNode(line);
    return idNow == idWanted
        ? QString()
        : QStringLiteral("the %1 that hit the row %2 now hits %3")
              .arg(line.strOperation, idWanted.toString(QUuid::WithoutBraces), idNow.toString(QUuid::WithoutBraces));
}

void CGesturePlayer::PlayKey(const SRecordedLine& line)
{
    if (line.fields.contains(QLatin1String("pasted"))) {
        QGuiApplication::clipboard()->setText(GetText(line, "pasted"));
    }
    if (QWidget* pWindow = SGesturePlace::Find(line.fields).pWindow) {
        WindowInput::SKey key = GetKey(line);
        const QJsonValue time = line.fields.value(QLatin1String("time"));
        key.nTime = time.isDouble() ? static_cast<ulong>(time.toDouble()) : ++nTime;
        WindowInput::PutKey(*pWindow, key);
    }
}

// The pointer gets there first, as a user's does. A drag that the user gave up by a key is over before another press.
void CGesturePlayer::PlayPress(const SRecordedLine& line)
{
    PlainDrag::Cancel();
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    const SGesturePlace placeOn = place.OnTarget();
    posShift = placeOn.pos - place.pos;
    nTime += bDoubleClick ? 0 : nTimeToNextMs;
    if (placeOn.pWindow) {
        WindowInput::SMouse move;
        move.pos = placeOn.pos;
        move.nTime = nTime;
        move.modifiers = GetModifiers(line);
        WindowInput::PutMouse(*placeOn.pWindow, move);
    }
    PutMouse(line, placeOn, QEvent::MouseButtonPress);
}

void CGesturePlayer::PlayRelease(const SRecordedLine& line)
{
    SGesturePlace place = SGesturePlace::Find(line.fields);
    place.pos += posShift;
    PutMouse(line, place, QEvent::MouseButtonRelease);
}

void CGesturePlayer::PlayMove(const SRecordedLine& line)
{
    SGesturePlace place = SGesturePlace::Find(line.fields);
    place.pos += GetNumber(line, "buttons") == 0 ? QPoint() : posShift;
    PutMouse(line, place, QEvent::MouseMove);
}

void CGesturePlayer::PlayNothing(const SRecordedLine&) { }

void CGesturePlayer::PlayWheel(const SRecordedLine& line)
{
    const SGesturePlace place = SGesturePlace::Find(line.fields).OnTarget();
    if (place.pWindow) {
        WindowInput::SMouse mouse;
        mouse.pos = place.pos;
        mouse.modifiers = GetModifiers(line);
        mouse.nTime = ++nTime;
        WindowInput::PutWheel(*place.pWindow, mouse, QPoint(GetNumber(line, "dx"), GetNumber(line, "dy")));
    }
}

// A drag of this program follows its mouse.
void CGesturePlayer::PlayDrag(const SRecordedLine& line)
{
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    if (PlainDrag::IsRunning() && place.pWindow) {
        WindowInput::SMouse mouse;
        mouse.pos = place.pos;
        mouse.buttons = Qt::LeftButton;
        mouse.nTime = ++nTime;
        WindowInput::PutMouse(*place.pWindow, mouse);
    }
}

void CGesturePlayer::PlayDrop(const SRecordedLine& line)
{
    PlayDrag(line);
    const SGesturePlace place = SGesturePlace::Find(line.fields);
    if (PlainDrag::IsRunning() && place.pWindow) {
        WindowInput::SMouse mouse;
        mouse.pos = place.pos;
        mouse.type = QEvent::MouseButtonRelease;
        mouse.button = Qt::LeftButton;
        mouse.nTime = ++nTime;
        WindowInput::PutMouse(*place.pWindow, mouse);
    }
}

void CGesturePlayer::PlayShortcut(const SRecordedLine& line)
{
    QWidget* pWindow = QApplication::activeWindow() ? QApplication::activeWindow() : &window;
    const QKeySequence keys = QKeySequence::fromString(GetText(line, "keys"), QKeySequence::PortableText);
    for (int n = 0; n < keys.count(); ++n) {
        WindowInput::SKey key;
        key.nKey = keys[n] & ~static_cast<int>(Qt::KeyboardModifierMask);
        key.nTime = ++nTime;
        key.modifiers = Qt::KeyboardModifiers(keys[n] & static_cast<int>(Qt::KeyboardModifierMask));
        WindowInput::PutKey(*pWindow, key);
    }
}

void CGesturePlayer::PlayContextMenu(const SRecordedLine& line)
{
    if (QWidget* pWindow = SGesturePlace::Find(line.fields).pWindow) {
        WindowInput::PutContextMenu(*pWindow);
    }
}

void CGesturePlayer::PlayComposed(const SRecordedLine& line)
{
    if (QWidget* pTarget = SGesturePlace::Find(line.fields).pTarget) {
        QInputMethodEvent event;
        event.setCommitString(GetText(line, "text"));
        QCoreApplication::sendEvent(pTarget, &event);
    }
}

void CGesturePlayer::PlayActive(const SRecordedLine& line)
{
    strActive = GetText(line, "window");
    QWidget* pWindow = SGesturePlace::Find(line.fields).pWindow;
    if (pWindow || strActive.isEmpty()) {
        WindowInput::Activate(pWindow);
    }
}

// Queued, since the window may ask a question. What a gesture has closed is closing already.
void CGesturePlayer::PlayClose(const SRecordedLine&)
{
    if (++nRecordedCloses > nCloses) {
        QMetaObject::invokeMethod(&window, &QWidget::close, Qt::QueuedConnection);
    }
}

QAction* CGesturePlayer::FindAction(const SRecordedLine& line) const
{
    const QString strEntry = line.strOperation == QLatin1String("shortcut") ? GetText(line, "entry") : QString();
    if (strEntry.isEmpty()) {
        return nullptr;
    }
    const QKeySequence keys = QKeySequence::fromString(GetText(line, "keys"), QKeySequence::PortableText);
    const QList<QAction*> listAction = window.findChildren<QAction*>();
    const auto isSame = [&](const QAction* pAction) { return pAction->text() == strEntry; };
    const auto isByKeys = [&](const QAction* pAction) { return pAction->shortcuts().contains(keys); };
    auto it = std::find_if(listAction.begin(), listAction.end(), isSame);
    it = it == listAction.end() ? std::find_if(listAction.begin(), listAction.end(), isByKeys) : it; // in another language
    return it == listAction.end() ? nullptr : *it;
}

void CGesturePlayer::PutMouse(const SRecordedLine& line, const SGesturePlace& place, QEvent::Type type)
{
    ++nTime;
    if (place.pWindow) {
        WindowInput::SMouse mouse;
        mouse.pos = place.pos;
        mouse.type = type;
        mouse.button = static_cast<Qt::MouseButton>(GetNumber(line, "button"));
        mouse.buttons = Qt::MouseButtons(GetNumber(line, "buttons"));
        mouse.modifiers = GetModifiers(line);
        mouse.nTime = nTime;
        WindowInput::PutMouse(*place.pWindow, mouse);
    }
}
