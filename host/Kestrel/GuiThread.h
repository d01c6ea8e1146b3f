#pragma once

#include <QCoreApplication>
#include <QThread>

/// The thread of widgets. What Kestrel promises only there is asserted there, in debug builds.
namespace GuiThread {

/// Whether the caller runs on the application object's thread; also true while there is no such object.
inline bool IsCurrent()
{
    return !QCoreApplication::instance() || QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace GuiThread
