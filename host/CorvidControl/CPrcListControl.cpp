#include "CorvidControl/CPrcListControl.h"

#include "CorvidControl/CDeviceCommands.h"
#include "CorvidControl/CListStore.h"
#include "CorvidControl/CMessageDispatcher.h"
#include "CorvidControl/CSite.h"

CPrcListControl::CPrcListControl(CMessageDispatcher& dispatcherNew, CSite& siteNew, CDeviceCommands& commandsNew,
                                 CListStore& storeNew)
    : dispatcher(dispatcherNew), site(siteNew), commands(commandsNew), store(storeNew)
{ }

void CPrcListControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderPrcList, pObserver);
}

void CPrcListControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderPrcList, pObserver);
}

qint32 CPrcListControl::ExportList(QString strPath, qint32 /*nOption*/)
{
    return store.Export(strPath);
}

qint32 CPrcListControl::ImportList(QString strPath)
{
    QList<QUuid> listBefore;
    const QList<SProcessorNode> listProcessor = site.CopyTree(false).GetProcessors();
    for (const SProcessorNode& processor : listProcessor)
        listBefore.append(processor.idNode);
    const CListStore::EnImportResult result = store.Import(strPath);
    if (result == CListStore::ImportDone)
        commands.FollowList(listBefore);
    return result;
}

void CPrcListControl::GetDiscoveredTree(SProcessorAllNode& node)
{
    node = site.GetTree(false);
}

void CPrcListControl::GetSimulatorTree(SProcessorAllNode& node)
{
    node = site.GetTree(true);
}

void CPrcListControl::AddGroup(SProcessorGroupNode node, bool /*bEmpty*/)
{
    site.AddGroup(node);
}

void CPrcListControl::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    commands.DeleteGroup(idGroup, bWithProcessors);
}

void CPrcListControl::DeleteProcessor(QUuid idProcessor, bool /*bOption*/)
{
    commands.Delete(idProcessor);
}

void CPrcListControl::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    site.MoveProcessor(idProcessor, idGroup);
}

void CPrcListControl::RenameGroup(QUuid idGroup, QString strName)
{
    site.RenameNode(idGroup, strName);
}

bool CPrcListControl::IsNodeActive(QUuid idNode)
{
    return site.IsActive(idNode);
}

void CPrcListControl::SetExpanded(QUuid idNode, bool bExpanded)
{
    site.SetExpanded(idNode, bExpanded);
}

qint32 CPrcListControl::GetSimulatorCount()
{
    return site.CopyTree(true).GetProcessorCount();
}

qint32 CPrcListControl::GetNextGroupIndex()
{
    return site.CopyTree(site.IsSimulatorPane()).GetNextGroupIndex();
}

void CPrcListControl::GetProcessorIPs(std::vector<uint>& vecIP)
{
    const QList<SProcessorNode> listProcessor = site.CopyTree(false).GetProcessors();
    for (const SProcessorNode& processor : listProcessor)
        vecIP.push_back(processor.nIP);
}

qint32 CPrcListControl::GetNodeType(QUuid idNode)
{
    return site.GetNodeType(idNode);
}
