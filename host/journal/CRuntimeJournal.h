#pragma once

#include "interfaces/control/IRuntimeControl.h"
#include "journal/CCallWriter.h"

class CJobs;

/// Writes down every call on the host at run time, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns none of the objects it is given.
class CRuntimeJournal : public IRuntimeControl
{
public:
    /// All must outlive the decorator.
    CRuntimeJournal(IRuntimeControl& innerIn, CCallLog& journal, CJobs& jobsIn);
    virtual ~CRuntimeJournal() = default;

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
    IRuntimeControl& inner;
    const CCallWriter writer;
    CJobs& jobs;
};
