#pragma once

#include <QtGlobal>

/// What a process holds at one time.
struct SHoldings
{
    qint64 nBytes = 0;   ///< that the allocator has handed out
    qint64 nObjects = 0; ///< of Qt, alive
    qint64 nHandles = 0; ///< open files, sockets and pipes
    qint64 nThreads = 0;
    qint64 nTimers = 0; ///< of living objects, on the GUI thread
};
