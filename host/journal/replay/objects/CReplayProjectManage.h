#pragma once

#include "interfaces/control/IProjectManageControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The project of a replay.
class CReplayProjectManage : public IProjectManageControl
{
public:
    /// answers must outlive it.
    explicit CReplayProjectManage(IReplayAnswers& answers);
    virtual ~CReplayProjectManage() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void GetProjectInfo(SProjectInfo& info) override;

private:
    const CReplayCaller caller;
};
