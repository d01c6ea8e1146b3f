#include "CorvidControl/objects/CPreferenceControl.h"

#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/objects/CHostState.h"

CPreferenceControl::CPreferenceControl(CMessageDispatcher& dispatcherIn, const CHostState& hostIn)
    : dispatcher(dispatcherIn), host(hostIn)
{ }

void CPreferenceControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderPreference, pObserver);
}

void CPreferenceControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderPreference, pObserver);
}

bool CPreferenceControl::IsChiefMode()
{
    return host.IsChiefMode();
}
