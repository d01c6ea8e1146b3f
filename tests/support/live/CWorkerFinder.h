#pragma once

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/widgets/CBaseThread.h"

/// Finds out which worker attaches while it lives, as when a panel is made. GUI thread; not while others use the pointers.
class CWorkerFinder final : public IProtocalControl
{
public:
    CWorkerFinder()
    {
        g_pProtocalControl = this;
    }

    ~CWorkerFinder()
    {
        g_pProtocalControl = pInner;
    }
    Q_DISABLE_COPY(CWorkerFinder)

    void Attach(CObserver* pObserver) override
    {
        pWorker = dynamic_cast<CBaseThread*>(pObserver);
        pInner->Attach(pObserver);
    }

    void Detach(CObserver* pObserver) override
    {
        pInner->Detach(pObserver);
    }

    /// The panel's; null when none has attached.
    CBaseThread* GetWorker() const
    {
        return pWorker;
    }

private:
    IProtocalControl* pInner = g_pProtocalControl;
    CBaseThread* pWorker = nullptr;
};
