#include "tree/commands/GroupCommands.h"

#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorGroupNode.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

bool IsGroup(const QModelIndex& index)
{
    return RowValue::NodeType(index) == NodeGroup;
}

std::vector<QUuid> IdsOfType(const QModelIndexList& listRow, EnNodeType type)
{
    std::vector<QUuid> vecId;
    for (const QModelIndex& index : listRow) {
        if (RowValue::NodeType(index) == type) {
            vecId.push_back(RowValue::NodeId(index));
        }
    }
    return vecId;
}

void MoveProcessors(const std::vector<QUuid>& vecId, const QUuid& idGroup)
{
    for (const QUuid& id : vecId) {
        g_pPrcListControl->MoveProcessor(id, idGroup);
    }
}

SProcessorGroupNode NewGroup()
{
    SProcessorGroupNode group;
    const QString strName = QCoreApplication::translate("CProcessorTree", "Group %1");
    group.strName = strName.arg(g_pPrcListControl->GetNextGroupIndex());
    group.idNode = QUuid::createUuid();
    return group;
}

} // namespace

void GroupCommands::Group(const QModelIndexList& listRow)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const std::vector<QUuid> vecProcessor = IdsOfType(listRow, NodeProcessor);
    const SProcessorGroupNode group = NewGroup();
    g_pPrcListControl->AddGroup(group, listRow.isEmpty());
    MoveProcessors(vecProcessor, group.idNode);
    g_pRuntimeControl->SetSelectedNodes({ group.idNode });
}

void GroupCommands::Ungroup(const QModelIndexList& listRow, const QUuid& idNext)
{
    Q_ASSERT(GuiThread::IsCurrent());
    for (const QUuid& id : IdsOfType(listRow, NodeGroup)) {
        g_pPrcListControl->DeleteGroup(id, false);
    }
    g_pRuntimeControl->SetSelectedNodes({ idNext });
}

void GroupCommands::RemoveFromGroup(const QModelIndexList& listRow)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QModelIndexList listMember;
    std::copy_if(listRow.cbegin(), listRow.cend(), std::back_inserter(listMember),
                 [](const QModelIndex& index) { return IsGroup(index.parent()); });
    MoveProcessors(IdsOfType(listMember, NodeProcessor), QUuid());
}

void GroupCommands::MoveToGroup(const QModelIndexList& listRow, const QUuid& idGroup)
{
    Q_ASSERT(GuiThread::IsCurrent());
    MoveProcessors(IdsOfType(listRow, NodeProcessor), idGroup);
}
