#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IPreferenceControl.h"

/// The double of g_pPreferenceControl.
class CPreferenceControlDouble final : public IPreferenceControl, private CDoubledObject
{
public:
    explicit CPreferenceControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pPreferenceControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
    bool IsChiefMode() override;
};
