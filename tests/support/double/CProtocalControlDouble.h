#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IProtocalControl.h"

/// The double of g_pProtocalControl.
class CProtocalControlDouble final : public IProtocalControl, private CDoubledObject
{
public:
    explicit CProtocalControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pProtocalControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
};
