#pragma once

#include "interfaces/control/IRuntimeControl.h"

class CJobs;
class CMessageDispatcher;
class CProcessorList;

/// The object behind g_pRuntimeControl.
class CRuntimeControl final : public IRuntimeControl
{
public:
    CRuntimeControl(CMessageDispatcher& dispatcherIn, CProcessorList& processorsIn, CJobs& jobsIn);
    virtual ~CRuntimeControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void PostMessage(qint32 nMessage) override;
    bool IsSimulatorPane() override;
    void SetSimulatorPane(bool bSimulator) override;
    bool SetSelectedNodes(const std::vector<QUuid>& vecId) override;
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override;
    std::vector<QUuid> GetSelectedProcessors() override;
    bool IsDeleteBlocked(QUuid idNode) override;
    bool IsNodeInUse(QUuid idNode) override;
    void SetBusy(bool bBusy) override;

private:
    CMessageDispatcher& dispatcher;
    CProcessorList& processors;
    CJobs& jobs;
};
