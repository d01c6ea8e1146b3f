#pragma once

#include "interfaces/control/IPreferenceControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The preferences of a replay.
class CReplayPreference : public IPreferenceControl
{
public:
    /// answers must outlive it.
    explicit CReplayPreference(IReplayAnswers& answers);
    virtual ~CReplayPreference() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    bool IsChiefMode() override;

private:
    const CReplayCaller caller;
};
