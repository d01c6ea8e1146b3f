#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IProjectManageControl.h"

/// The double of g_pProjectManageControl.
class CProjectManageControlDouble final : public IProjectManageControl, private CDoubledObject
{
public:
    explicit CProjectManageControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pProjectManageControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
    void GetProjectInfo(SProjectInfo& info) override;
};
