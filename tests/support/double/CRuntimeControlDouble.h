#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IRuntimeControl.h"

/// The double of g_pRuntimeControl.
class CRuntimeControlDouble final : public IRuntimeControl, private CDoubledObject
{
public:
    explicit CRuntimeControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pRuntimeControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
    void PostMessage(qint32 nMessage) override;
    bool IsSimulatorPane() override;
    void SetSimulatorPane(bool bSimulator) override;
    bool SetSelectedNodes(const std::vector<QUuid>& vecId) override;
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override;
    std::vector<QUuid> GetSelectedProcessors() override;
    bool IsDeleteBlocked(QUuid idNode) override;
    bool IsNodeInUse(QUuid idNode) override;
    void SetBusy(bool bBusy) override;
};
