#pragma once

#include <QtGlobal>

#include <cstddef>

/// How much a recording may take.
struct SRecordingLimits
{
    int nFiles = 16;                     ///< of all runs, in the folder; at least 2
    qint64 nFileBytes = 4 * 1024 * 1024; ///< of one file; the line that passes it is its last
    std::size_t nQueued = 16384;         ///< records in memory that wait for the disk
};
