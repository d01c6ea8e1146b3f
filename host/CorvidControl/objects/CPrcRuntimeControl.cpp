#include "CorvidControl/objects/CPrcRuntimeControl.h"

#include "CorvidControl/messages/CMessageDispatcher.h"

void CPrcRuntimeControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderPrcRuntime, pObserver);
}

void CPrcRuntimeControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderPrcRuntime, pObserver);
}
