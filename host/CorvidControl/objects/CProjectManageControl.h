#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IProjectManageControl.h"

class CHostState;

/// The object behind g_pProjectManageControl.
class CProjectManageControl final : public CObserved<IProjectManageControl, SenderProjectManage>
{
public:
    /// All references must outlive it.
    CProjectManageControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, const CHostState& hostIn);

    /// Any thread. Sets name and id of info; the id follows from the name, and is null when none is open.
    void GetProjectInfo(SProjectInfo& info) override;

private:
    const CHostState& host;
};
