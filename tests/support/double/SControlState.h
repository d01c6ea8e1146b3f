#pragma once

#include "double/CDoubleJournal.h"
#include "double/CObserverHub.h"
#include "double/SControlAnswers.h"

/// What the eight doubled objects share.
struct SControlState
{
    CDoubleJournal journal;
    std::mutex mutex; ///< guards answers; never held while a call waits at its gate
    SControlAnswers answers;
    CObserverHub hub; ///< last: its thread ends before the others go
};
