#pragma once

#include "interfaces/control/SSimulatorRequest.h"

#include <limits>

/// How much the library takes: a command or a file that would exceed it is refused, a scan adds up to it.
struct SListLimits
{
    int nProcessors = 256; ///< in the Discovered list
    int nGroups = 256;     ///< in each pane
    int nSimulators = nMaxSimulators;
    int nAux = 32;                ///< numbers that a group carries
    int nBytes = 2 * 1024 * 1024; ///< of a list file

    /// For load tests: no limits but for the simulators and the memory.
    static SListLimits Lifted()
    {
        return { std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), nMaxSimulators, 32, 16 * 1024 * 1024 };
    }
};
