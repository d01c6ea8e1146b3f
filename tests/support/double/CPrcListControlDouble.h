#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IPrcListControl.h"

/// The double of g_pPrcListControl.
class CPrcListControlDouble final : public IPrcListControl, private CDoubledObject
{
public:
    explicit CPrcListControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pPrcListControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
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
};
