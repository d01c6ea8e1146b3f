#pragma once

#include "interfaces/control/IPrcListControl.h"
#include "journal/CCallWriter.h"

class CJobs;

/// Writes down every call on the list of processors, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns none of the objects it is given.
class CPrcListJournal : public IPrcListControl
{
public:
    /// All must outlive the decorator.
    CPrcListJournal(IPrcListControl& innerIn, CCallLog& journal, CJobs& jobsIn);
    virtual ~CPrcListJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    qint32 ExportList(QString strPath, qint32 nOption) override;
    qint32 ImportList(QString strPath) override;
    void GetDiscoveredTree(SProcessorAllNode& node) override;
    void GetSimulatorTree(SProcessorAllNode& node) override;
    void AddGroup(SProcessorGroupNode node, bool bEmpty) override;
    void DeleteGroup(QUuid idGroup, bool bWithProcessors) override;
    void DeleteProcessor(QUuid idProcessor, bool bOption) override;
    void MoveProcessor(QUuid idProcessor, QUuid idGroup) override;
    void RenameGroup(QUuid idGroup, QString strName) override;
    bool IsNodeActive(QUuid idNode) override;
    void SetExpanded(QUuid idNode, bool bExpanded) override;
    qint32 GetSimulatorCount() override;
    qint32 GetNextGroupIndex() override;
    void GetProcessorIPs(std::vector<uint>& vecIP) override;
    qint32 GetNodeType(QUuid idNode) override;

private:
    IPrcListControl& inner;
    const CCallWriter writer;
    CJobs& jobs;
};
