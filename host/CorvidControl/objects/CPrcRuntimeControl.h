#pragma once

#include "interfaces/control/IPrcRuntimeControl.h"

class CMessageDispatcher;

/// The object behind g_pPrcRuntimeControl: the state of the devices, for observers only.
class CPrcRuntimeControl final : public IPrcRuntimeControl
{
public:
    explicit CPrcRuntimeControl(CMessageDispatcher& dispatcherIn) : dispatcher(dispatcherIn) { }
    virtual ~CPrcRuntimeControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    CMessageDispatcher& dispatcher;
};
