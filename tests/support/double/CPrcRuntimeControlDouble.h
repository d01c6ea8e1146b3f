#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IPrcRuntimeControl.h"

/// The double of g_pPrcRuntimeControl.
class CPrcRuntimeControlDouble final : public IPrcRuntimeControl, private CDoubledObject
{
public:
    explicit CPrcRuntimeControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pPrcRuntimeControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
};
