#include "CorvidControl/objects/CPrcListControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/faults/CFaults.h"
#include "CorvidControl/file/CListStore.h"
#include "CorvidControl/list/CProcessorList.h"

CPrcListControl::CPrcListControl(CMessageDispatcher& dispatcherIn, CFaults& faultsIn, CProcessorList& processorsIn,
                                 CDeviceCommands& commandsIn, CListStore& storeIn)
    : CObserved(dispatcherIn, faultsIn.calls, "PrcListControl"), readings(faultsIn.readings), processors(processorsIn),
      commands(commandsIn), store(storeIn)
{ }

qint32 CPrcListControl::ExportList(QString strPath, qint32 /*nOption*/)
{
    gate.Enter("ExportList");
    if (gate.IsRefused(CommandExport)) {
        Refuse(CommandExport, QStringLiteral("Exporting the list"), strPath);
        return CListStore::ExportNotWritten;
    }
    const std::optional<int> nCode = gate.TakeExportCode();
    return nCode ? *nCode : store.Export(strPath);
}

qint32 CPrcListControl::ImportList(QString strPath)
{
    gate.Enter("ImportList");
    if (gate.IsRefused(CommandImport)) {
        Refuse(CommandImport, QStringLiteral("Importing a list"), strPath);
        return CListStore::ImportLocked;
    }
    const std::optional<int> nCode = gate.TakeImportCode();
    return nCode ? *nCode : store.Import(strPath);
}

void CPrcListControl::GetDiscoveredTree(SProcessorAllNode& node)
{
    gate.Enter("GetDiscoveredTree");
    node = readings.Distort(processors.GetTree(false));
}

void CPrcListControl::GetSimulatorTree(SProcessorAllNode& node)
{
    gate.Enter("GetSimulatorTree");
    node = readings.Distort(processors.GetTree(true));
}

void CPrcListControl::AddGroup(SProcessorGroupNode node, bool /*bEmpty*/)
{
    gate.Enter("AddGroup");
    if (gate.IsRefused(CommandAddGroup)) {
        Refuse(CommandAddGroup, QStringLiteral("Adding a group"), node.strName);
        return;
    }
    processors.AddGroup(node);
}

void CPrcListControl::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    gate.Enter("DeleteGroup");
    const EnListCommand command = bWithProcessors ? CommandDeleteGroup : CommandUngroup;
    if (gate.IsRefused(command)) {
        Refuse(command, QStringLiteral("Deleting a group"), processors.FindName(idGroup));
        return;
    }
    commands.DeleteGroup(idGroup, bWithProcessors);
}

void CPrcListControl::DeleteProcessor(QUuid idProcessor, bool /*bOption*/)
{
    gate.Enter("DeleteProcessor");
    if (gate.IsRefused(CommandDelete)) {
        Refuse(CommandDelete, QStringLiteral("Deleting a processor"), processors.FindName(idProcessor));
        return;
    }
    commands.Delete(idProcessor);
}

void CPrcListControl::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    gate.Enter("MoveProcessor");
    if (gate.IsRefused(CommandMove)) {
        Refuse(CommandMove, QStringLiteral("Moving a processor"), processors.FindName(idProcessor));
        return;
    }
    processors.MoveProcessor(idProcessor, idGroup);
}

void CPrcListControl::RenameGroup(QUuid idGroup, QString strName)
{
    gate.Enter("RenameGroup");
    if (gate.IsRefused(CommandRename)) {
        Refuse(CommandRename, QStringLiteral("Renaming a group"), strName);
        return;
    }
    processors.RenameNode(idGroup, strName);
}

bool CPrcListControl::IsNodeActive(QUuid idNode)
{
    gate.Enter("IsNodeActive");
    return processors.IsActive(idNode);
}

void CPrcListControl::SetExpanded(QUuid idNode, bool bExpanded)
{
    gate.Enter("SetExpanded");
    processors.SetExpanded(idNode, bExpanded);
}

qint32 CPrcListControl::GetSimulatorCount()
{
    gate.Enter("GetSimulatorCount");
    return processors.CopyTree(true).GetProcessorCount();
}

qint32 CPrcListControl::GetNextGroupIndex()
{
    gate.Enter("GetNextGroupIndex");
    return processors.CopyTree(processors.IsSimulatorPane()).GetNextGroupIndex();
}

void CPrcListControl::GetProcessorIPs(std::vector<uint>& vecIP)
{
    gate.Enter("GetProcessorIPs");
    const QList<SProcessorNode> listProcessor = processors.CopyTree(false).GetProcessors();
    for (const SProcessorNode& processor : listProcessor) {
        vecIP.push_back(processor.nIP);
    }
}

qint32 CPrcListControl::GetNodeType(QUuid idNode)
{
    gate.Enter("GetNodeType");
    return processors.GetNodeType(idNode);
}

void CPrcListControl::Refuse(EnListCommand command, const QString& strText, const QString& strName)
{
    processors.Refuse(SenderPrcList, { command, strText, strName }, CCallGate::GetRefusal());
}
