#include "CorvidControl/CPreferenceControl.h"

#include "CorvidControl/CHostState.h"
#include "CorvidControl/CMessageDispatcher.h"

CPreferenceControl::CPreferenceControl(CMessageDispatcher& dispatcherNew, const CHostState& hostNew)
    : dispatcher(dispatcherNew), host(hostNew)
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
