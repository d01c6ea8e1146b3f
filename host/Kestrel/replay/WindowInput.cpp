#include "Kestrel/replay/WindowInput.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/replay/PlainDrag.h"

#include <QApplication>
#include <QCursor>
#include <QWidget>
#include <QWindow>

#include <private/qhighdpiscaling_p.h>
#include <qpa/qwindowsysteminterface.h>

namespace {

/// A position as the window system counts.
struct SNative
{
    SNative(const QWindow* pWindow, const QPoint& pos)
        : local(QHighDpi::toNativeLocalPosition(QPointF(pos), pWindow)),
          global(QHighDpi::toNativePixels(QPointF(pWindow->mapToGlobal(pos)), pWindow))
    { }

    QPointF local;
    QPointF global;
};

} // namespace

bool WindowInput::HasDesktop()
{
    const QString strPlatform = QGuiApplication::platformName();
    return strPlatform == QLatin1String("xcb") || strPlatform.startsWith(QLatin1String("wayland"));
}

void WindowInput::PutMouse(QWidget& window, const SMouse& mouse)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QWindow* pWindow = window.windowHandle();
    const SNative at(pWindow, mouse.pos);
    if (!HasDesktop()) {
        QCursor::setPos(pWindow->mapToGlobal(mouse.pos));
    }
    QWindowSystemInterface::handleMouseEvent(pWindow, mouse.nTime, at.local, at.global, mouse.buttons, mouse.button, mouse.type,
                                             mouse.modifiers);
}

void WindowInput::PutWheel(QWidget& window, const SMouse& mouse, const QPoint& delta)
{
    const SNative at(window.windowHandle(), mouse.pos);
    QWindowSystemInterface::handleWheelEvent(window.windowHandle(), mouse.nTime, at.local, at.global, QPoint(), delta,
                                             mouse.modifiers);
}

void WindowInput::PutKey(QWidget& window, const SKey& key)
{
    QWindowSystemInterface::handleKeyEvent(window.windowHandle(), key.nTime, key.type, key.nKey, key.modifiers, key.strText,
                                           key.bRepeat);
}

void WindowInput::PutContextMenu(QWidget& window)
{
    const SNative at(window.windowHandle(), window.mapFromGlobal(QCursor::pos()));
    QWindowSystemInterface::handleContextMenuEvent(window.windowHandle(), false, at.local.toPoint(), at.global.toPoint(),
                                                   Qt::NoModifier);
}

void WindowInput::Leave()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton || QApplication::activePopupWidget() || PlainDrag::IsRunning()) {
        return;
    }
    const QWindowList listWindow = QGuiApplication::topLevelWindows();
    for (QWindow* pWindow : listWindow) {
        if (pWindow->isVisible()) {
            QWindowSystemInterface::handleLeaveEvent(pWindow);
        }
    }
}

void WindowInput::Activate(QWidget* pWindow)
{
    QWindowSystemInterface::handleWindowActivated(pWindow ? pWindow->windowHandle() : nullptr, Qt::ActiveWindowFocusReason);
}

bool WindowInput::IsTaken()
{
    return QWindowSystemInterface::windowSystemEventsQueued() == 0;
}
