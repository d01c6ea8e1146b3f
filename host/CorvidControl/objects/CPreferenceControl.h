#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IPreferenceControl.h"

class CHostState;

/// The object behind g_pPreferenceControl.
class CPreferenceControl final : public CObserved<IPreferenceControl, SenderPreference>
{
public:
    /// All references must outlive it.
    CPreferenceControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, const CHostState& hostIn);

    /// Any thread, never waits. A change is followed by 32.
    bool IsChiefMode() override;

private:
    const CHostState& host;
};
