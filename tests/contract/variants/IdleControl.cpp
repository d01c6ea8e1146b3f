// A control library with one list in memory that does nothing with it: no call has an effect, no message comes.
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CObserver.h"
#include "nodes/SProcessorAllNode.h"

namespace {

class CIdleControl final : public IConfigControl,
                           public IPrcBasicControl,
                           public IPrcListControl,
                           public IPrcRuntimeControl,
                           public IPreferenceControl,
                           public IProjectManageControl,
                           public IProtocalControl,
                           public IRuntimeControl
{
public:
    CIdleControl()
    {
        SProcessorNode node;
        node.strName = QStringLiteral("Processor");
        node.idNode = QUuid::createUuid();
        SProcessorGroupNode group;
        group.strName = QStringLiteral("Group");
        group.idNode = QUuid::createUuid();
        group.listProcessor = { node };
        root.listGroup = { group };
    }
    void Attach(CObserver*) override { }
    void Detach(CObserver*) override { }
    void GetReservedIPs(QList<uint>&) override { }
    QString GetListFilePath() override
    {
        return {};
    }
    void RefreshProcessors() override { }
    void AddSimulators(SSimulatorRequest) override { }
    void AddProcessor(quint32) override { }
    void RenameProcessor(QUuid, QString) override { }
    QString GetTypeName(qint32) override
    {
        return {};
    }
    SLocalAddress GetLocalAddress() override
    {
        return {};
    }
    bool IsListLocked() override
    {
        return false;
    }
    bool IsRefreshBlocked() override
    {
        return false;
    }
    qint32 ExportList(QString, qint32) override
    {
        return 0;
    }
    qint32 ImportList(QString) override
    {
        return 0;
    }
    void GetDiscoveredTree(SProcessorAllNode& node) override
    {
        node = root;
    }
    void GetSimulatorTree(SProcessorAllNode&) override { }
    void AddGroup(SProcessorGroupNode, bool) override { }
    void DeleteGroup(QUuid, bool) override { }
    void DeleteProcessor(QUuid, bool) override { }
    void MoveProcessor(QUuid, QUuid) override { }
    void RenameGroup(QUuid, QString) override { }
    bool IsNodeActive(QUuid) override
    {
        return true;
    }
    void SetExpanded(QUuid, bool) override { }
    qint32 GetSimulatorCount() override
    {
        return 0;
    }
    qint32 GetNextGroupIndex() override
    {
        return 0;
    }
    void GetProcessorIPs(std::vector<uint>&) override { }
    qint32 GetNodeType(QUuid) override
    {
        return 0;
    }
    bool IsChiefMode() override
    {
        return false;
    }
    void GetProjectInfo(SProjectInfo&) override { }
    void PostMessage(qint32) override { }
    bool IsSimulatorPane() override
    {
        return false;
    }
    void SetSimulatorPane(bool) override { }
    bool SetSelectedNodes(const std::vector<QUuid>&) override
    {
        return false;
    }
    std::vector<QUuid> GetSelectedNodes(bool) override
    {
        return {};
    }
    std::vector<QUuid> GetSelectedProcessors() override
    {
        return {};
    }
    bool IsDeleteBlocked(QUuid) override
    {
        return false;
    }
    bool IsNodeInUse(QUuid) override
    {
        return false;
    }
    void SetBusy(bool) override { }

private:
    SProcessorAllNode root;
};

CIdleControl control;

} // namespace

IConfigControl* g_pConfigControl = &control;
IPrcBasicControl* g_pPrcBasicControl = &control;
IPrcListControl* g_pPrcListControl = &control;
IPrcRuntimeControl* g_pPrcRuntimeControl = &control;
IPreferenceControl* g_pPreferenceControl = &control;
IProjectManageControl* g_pProjectManageControl = &control;
IProtocalControl* g_pProtocalControl = &control;
IRuntimeControl* g_pRuntimeControl = &control;
