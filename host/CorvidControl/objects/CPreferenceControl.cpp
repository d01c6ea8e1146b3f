#include "CorvidControl/objects/CPreferenceControl.h"

#include "CorvidControl/objects/CHostState.h"

CPreferenceControl::CPreferenceControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, const CHostState& hostIn)
    : CObserved(dispatcherIn, faults, "PreferenceControl"), host(hostIn)
{ }

bool CPreferenceControl::IsChiefMode()
{
    gate.Enter("IsChiefMode");
    return host.IsChiefMode();
}
