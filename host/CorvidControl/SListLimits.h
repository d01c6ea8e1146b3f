#pragma once

#include <limits>

/// How much the library takes.
struct SListLimits
{
    int nProcessors = 256; ///< in the Discovered list
    int nGroups = 256;     ///< in each pane
    int nSimulators = 2;

    /// No limits but for the simulators.
    static SListLimits Lifted()
    {
        return { std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), 2 };
    }
};
