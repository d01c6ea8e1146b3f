#pragma once

#include "interfaces/control/IPrcRuntimeControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The running state of the processors in a replay.
class CReplayPrcRuntime : public IPrcRuntimeControl
{
public:
    /// answers must outlive it.
    explicit CReplayPrcRuntime(IReplayAnswers& answers);
    virtual ~CReplayPrcRuntime() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    const CReplayCaller caller;
};
