#pragma once

#include "CorvidControl/list/CPanes.h"
#include "CorvidControl/list/SFault.h"

/// What a command did to the panes.
struct SOutcome
{
    bool bChanged = false;
    SFault fault;   ///< of one that was refused
    int nPane = 0;  ///< that was changed
    int nNodes = 1; ///< that it concerns

    /// Simulators are in no file: of them there is nothing to save.
    bool IsEdit() const
    {
        return bChanged && nPane == CPanes::nDiscovered;
    }
};
