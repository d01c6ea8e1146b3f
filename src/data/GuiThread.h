#pragma once

#include <QCoreApplication>
#include <QThread>

/// For the assertions of what runs on the GUI thread alone.
namespace GuiThread {

/// True on the thread that the application object belongs to. Any thread, as long as that object lives.
inline bool IsCurrent()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace GuiThread
