#pragma once

#include <QEvent>
#include <QPoint>
#include <QString>

class QWidget;

/// Input of a user, put in where the window system would: it is handled by the event loop, so that focus, grabs, popups and
/// shortcuts are Qt's own. GUI thread.
namespace WindowInput {

/// A mouse event.
struct SMouse
{
    QPoint pos; ///< in the window
    QEvent::Type type = QEvent::MouseMove;
    Qt::MouseButton button = Qt::NoButton;
    Qt::MouseButtons buttons = Qt::NoButton; ///< after it
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    ulong nTime = 0; ///< milliseconds; two presses within the interval of a double click are one
};

/// A key event.
struct SKey
{
    QEvent::Type type = QEvent::KeyPress;
    int nKey = 0;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    QString strText;
    bool bRepeat = false;
    ulong nTime = 0; ///< milliseconds; of a key that repeats itself, the one of its release
};

/// Whether a user sits before the windows, with a pointer and keys of their own.
bool HasDesktop();

/// Puts the pointer there too, where there is no desktop.
void PutMouse(QWidget& window, const SMouse& mouse);

void PutWheel(QWidget& window, const SMouse& mouse, const QPoint& delta);

void PutKey(QWidget& window, const SKey& key);

/// As the menu key asks for it.
void PutContextMenu(QWidget& window);

/// The pointer leaves the windows, unless it holds something there: a button, a menu, a drag.
void Leave();

/// Null: another program has the keys.
void Activate(QWidget* pWindow);

/// Everything that was put in has been given to its window.
bool IsTaken();

} // namespace WindowInput
