#pragma once

#include "CorvidControl/faults/CCallFaults.h"
#include "CorvidControl/faults/CMessageFaults.h"
#include "CorvidControl/faults/CReadingFaults.h"
#include "CorvidControl/faults/CSetBackClock.h"

/// What is to go wrong on purpose: one part for each kind of fault. Each part has a lock of its own, which is held for moments
/// only and taken last: nothing is called and no other lock is taken under it. The steps of a scenario fill the parts, and
/// the places where the faults show ask them. All operations may be called on any thread.
class CFaults
{
public:
    /// Lets go what is held, now and from now on: the program is about to end. True when something was held.
    bool Release()
    {
        return calls.Release();
    }

    CCallFaults calls;
    CMessageFaults messages;
    CSetBackClock clock; ///< by which files are dated
    CReadingFaults readings{ clock };
};
