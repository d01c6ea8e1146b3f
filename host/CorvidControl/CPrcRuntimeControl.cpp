#include "CorvidControl/CPrcRuntimeControl.h"

#include "CorvidControl/CMessageDispatcher.h"

void CPrcRuntimeControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderPrcRuntime, pObserver);
}

void CPrcRuntimeControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderPrcRuntime, pObserver);
}
