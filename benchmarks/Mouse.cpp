#include "Mouse.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace {

void Send(QWidget* pViewport, QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    const QPoint ptGlobal = pViewport->mapToGlobal(pos);
    QMouseEvent event(type, pos, pViewport->window()->mapFromGlobal(ptGlobal), ptGlobal, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(pViewport, &event);
}

} // namespace

void Mouse::Press(QWidget* pViewport, const QPoint& pos)
{
    Send(pViewport, QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton);
}

void Mouse::Move(QWidget* pViewport, const QPoint& pos, Qt::MouseButtons buttons)
{
    Send(pViewport, QEvent::MouseMove, pos, Qt::NoButton, buttons);
}

void Mouse::Release(QWidget* pViewport, const QPoint& pos)
{
    Send(pViewport, QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton);
}
