#pragma once

#include "interfaces/control/IProtocalControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The protocol of a replay.
class CReplayProtocal : public IProtocalControl
{
public:
    /// answers must outlive it.
    explicit CReplayProtocal(IReplayAnswers& answers);
    virtual ~CReplayProtocal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    const CReplayCaller caller;
};
