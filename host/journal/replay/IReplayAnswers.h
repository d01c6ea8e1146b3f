#pragma once

#include "journal/replay/SReplayAnswer.h"
#include "journal/replay/SReplayedCall.h"

class CObserver;

/// What stands behind the eight objects of a replay. Any thread.
class IReplayAnswers
{
public:
    virtual ~IReplayAnswers() = default;

    /// May wait, but not on the GUI thread.
    virtual SReplayAnswer Answer(const SReplayedCall& call) = 0;

    /// Beside the call itself.
    virtual void Attach(const QString& strObject, CObserver* pObserver) = 0;
    virtual void Detach(const QString& strObject, CObserver* pObserver) = 0;
};
