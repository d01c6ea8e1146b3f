#include "CorvidControl/objects/CPreferenceControl.h"

#include "CorvidControl/objects/CHostState.h"

CPreferenceControl::CPreferenceControl(CMessageDispatcher& dispatcherIn, const CHostState& hostIn)
    : CObserved(dispatcherIn), host(hostIn)
{ }

bool CPreferenceControl::IsChiefMode()
{
    return host.IsChiefMode();
}
