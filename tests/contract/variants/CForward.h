#pragma once

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "nodes/SProcessorAllNode.h"

/// All eight objects in one, which hands every call on to those of CorvidControl. An observer of one object is one of
/// all.
class CForward : public IConfigControl,
                 public IPrcBasicControl,
                 public IPrcListControl,
                 public IPrcRuntimeControl,
                 public IPreferenceControl,
                 public IProjectManageControl,
                 public IProtocalControl,
                 public IRuntimeControl
{
public:
    virtual ~CForward() = default;

    /// Takes the place of the eight objects that are set.
    void Take();

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

    void GetReservedIPs(QList<uint>& listIP) override;
    QString GetListFilePath() override;

    void RefreshProcessors() override;
    void AddSimulators(SSimulatorRequest request) override;
    void AddProcessor(quint32 nIP) override;
    void RenameProcessor(QUuid idProcessor, QString strName) override;
    QString GetTypeName(qint32 nType) override;
    SLocalAddress GetLocalAddress() override;
    bool IsListLocked() override;
    bool IsRefreshBlocked() override;

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

    bool IsChiefMode() override;
    void GetProjectInfo(SProjectInfo& info) override;

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
    IConfigControl* pConfig = nullptr;
    IPrcBasicControl* pPrcBasic = nullptr;
    IPrcListControl* pPrcList = nullptr;
    IPrcRuntimeControl* pPrcRuntime = nullptr;
    IPreferenceControl* pPreference = nullptr;
    IProjectManageControl* pProjectManage = nullptr;
    IProtocalControl* pProtocal = nullptr;
    IRuntimeControl* pRuntime = nullptr;
};
