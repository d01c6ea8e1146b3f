#pragma once

#include <QCoreApplication>
#include <QThread>

/// For the assertions of what runs on the GUI thread alone.
namespace GuiThread {

/// True on the thread that the application object belongs to; false when there is none. Any thread.
inline bool IsCurrent()
{
    const QCoreApplication* const pApplication = QCoreApplication::instance();
    return pApplication && QThread::currentThread() == pApplication->thread();
}

} // namespace GuiThread
