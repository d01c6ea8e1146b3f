#pragma once

#include "interfaces/control/IRuntimeControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The host at run time of a replay.
class CReplayRuntime : public IRuntimeControl
{
public:
    /// answers must outlive it.
    explicit CReplayRuntime(IReplayAnswers& answers);
    virtual ~CReplayRuntime() = default;

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
    const CReplayCaller caller;
};
