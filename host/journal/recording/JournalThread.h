#pragma once

#include <QByteArray>

/// Names for the threads in a recording.
namespace JournalThread {

/// "gui", "worker-2" (a QThread), "pool-3" (the thread pool) or "other-4"; the same for the thread's whole life.
const QByteArray& GetName();

/// Whether the caller runs on the application object's thread.
bool IsGui();

} // namespace JournalThread
