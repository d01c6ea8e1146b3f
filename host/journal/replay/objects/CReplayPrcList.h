#pragma once

#include "interfaces/control/IPrcListControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The list of processors of a replay.
class CReplayPrcList : public IPrcListControl
{
public:
    /// answers must outlive it.
    explicit CReplayPrcList(IReplayAnswers& answers);
    virtual ~CReplayPrcList() = default;

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
    void ReadTree(const char* szOperation, SProcessorAllNode& node) const;

    const CReplayCaller caller;
};
