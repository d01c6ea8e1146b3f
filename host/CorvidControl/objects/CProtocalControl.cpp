#include "CorvidControl/objects/CProtocalControl.h"

#include "CorvidControl/messages/CMessageDispatcher.h"

void CProtocalControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderProtocal, pObserver);
}

void CProtocalControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderProtocal, pObserver);
}
