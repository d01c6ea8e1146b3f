#pragma once

#include "interfaces/control/IProjectManageControl.h"

class CHostState;
class CMessageDispatcher;

/// The object behind g_pProjectManageControl.
class CProjectManageControl final : public IProjectManageControl
{
public:
    CProjectManageControl(CMessageDispatcher& dispatcherIn, const CHostState& hostIn);
    virtual ~CProjectManageControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void GetProjectInfo(SProjectInfo& info) override;

private:
    CMessageDispatcher& dispatcher;
    const CHostState& host;
};
