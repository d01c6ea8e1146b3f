#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IProtocalControl.h"

/// The object behind g_pProtocalControl: sends the end of a burst of messages (59), and does nothing else.
class CProtocalControl final : public CObserved<IProtocalControl, SenderProtocal>
{
public:
    /// Both must outlive it.
    CProtocalControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults) : CObserved(dispatcherIn, faults, "ProtocalControl")
    { }
};
