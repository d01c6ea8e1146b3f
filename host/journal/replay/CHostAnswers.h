#pragma once

#include "journal/replay/CReplayCore.h"

/// The same for the host of a replay, which is not compared and never waits. Any thread.
class CHostAnswers : public IReplayAnswers
{
public:
    /// coreIn must outlive it.
    explicit CHostAnswers(CReplayCore& coreIn) : core(coreIn) { }

    SReplayAnswer Answer(const SReplayedCall& call) override
    {
        return core.AnswerHost(call);
    }
    void Attach(const QString& strObject, CObserver* pObserver) override
    {
        core.Attach(strObject, pObserver);
    }
    void Detach(const QString& strObject, CObserver* pObserver) override
    {
        core.Detach(strObject, pObserver);
    }

private:
    CReplayCore& core;
};
