#pragma once

#include <QCoreApplication>
#include <QThread>

/// The thread of the widgets.
namespace GuiThread {

/// True on the GUI thread, that of the application object. For the assertion of what a comment promises.
inline bool IsCurrent()
{
    const QCoreApplication* pApplication = QCoreApplication::instance();
    return pApplication && QThread::currentThread() == pApplication->thread();
}

} // namespace GuiThread
