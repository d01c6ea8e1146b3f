#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IPrcRuntimeControl.h"

/// The object behind g_pPrcRuntimeControl: sends what changes about the devices (7), and does nothing else.
class CPrcRuntimeControl final : public CObserved<IPrcRuntimeControl, SenderPrcRuntime>
{
public:
    /// Both must outlive it.
    CPrcRuntimeControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults)
        : CObserved(dispatcherIn, faults, "PrcRuntimeControl")
    { }
};
