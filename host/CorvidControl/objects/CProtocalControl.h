#pragma once

#include "interfaces/control/IProtocalControl.h"

class CMessageDispatcher;

/// The object behind g_pProtocalControl: tells when a burst of messages is over.
class CProtocalControl final : public IProtocalControl
{
public:
    explicit CProtocalControl(CMessageDispatcher& dispatcherIn) : dispatcher(dispatcherIn) { }
    virtual ~CProtocalControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    CMessageDispatcher& dispatcher;
};
