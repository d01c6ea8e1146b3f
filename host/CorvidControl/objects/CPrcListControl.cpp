#include "CorvidControl/objects/CPrcListControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/file/CListStore.h"
#include "CorvidControl/list/CProcessorList.h"

CPrcListControl::CPrcListControl(CMessageDispatcher& dispatcherIn, CProcessorList& processorsIn, CDeviceCommands& commandsIn,
                                 CListStore& storeIn)
    : CObserved(dispatcherIn), processors(processorsIn), commands(commandsIn), store(storeIn)
{ }

qint32 CPrcListControl::ExportList(QString strPath, qint32 /*nOption*/)
{
    return store.Export(strPath);
}

qint32 CPrcListControl::ImportList(QString strPath)
{
    return store.Import(strPath);
}

void CPrcListControl::GetDiscoveredTree(SProcessorAllNode& node)
{
    node = processors.GetTree(false);
}

void CPrcListControl::GetSimulatorTree(SProcessorAllNode& node)
{
    node = processors.GetTree(true);
}

void CPrcListControl::AddGroup(SProcessorGroupNode node, bool /*bEmpty*/)
{
    processors.AddGroup(node);
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
    processors.MoveProcessor(idProcessor, idGroup);
}

void CPrcListControl::RenameGroup(QUuid idGroup, QString strName)
{
    processors.RenameNode(idGroup, strName);
}

bool CPrcListControl::IsNodeActive(QUuid idNode)
{
    return processors.IsActive(idNode);
}

void CPrcListControl::SetExpanded(QUuid idNode, bool bExpanded)
{
    processors.SetExpanded(idNode, bExpanded);
}

qint32 CPrcListControl::GetSimulatorCount()
{
    return processors.CopyTree(true).GetProcessorCount();
}

qint32 CPrcListControl::GetNextGroupIndex()
{
    return processors.CopyTree(processors.IsSimulatorPane()).GetNextGroupIndex();
}

void CPrcListControl::GetProcessorIPs(std::vector<uint>& vecIP)
{
    const QList<SProcessorNode> listProcessor = processors.CopyTree(false).GetProcessors();
    for (const SProcessorNode& processor : listProcessor) {
        vecIP.push_back(processor.nIP);
    }
}

qint32 CPrcListControl::GetNodeType(QUuid idNode)
{
    return processors.GetNodeType(idNode);
}
