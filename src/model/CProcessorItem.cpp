#include "model/CProcessorItem.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "delegate/RowLook.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QSize>

#include <algorithm>

namespace {

// A width of 0 leaves the width to the view.
constexpr QSize sizeRow(0, RowLook::nRowHeight);
constexpr QSize sizeInfo(0, RowLook::nInfoRowHeight);

CProcessorItem* NewItem(EnNodeType nType, const QUuid& id)
{
    auto* pItem = new CProcessorItem(nType);
    pItem->SetNodeId(id);
    return pItem;
}

} // namespace

CProcessorItem::CProcessorItem(int nType)
{
    setData(nType, RoleNodeType);
    setData(sizeRow, Qt::SizeHintRole);
}

CProcessorItem::~CProcessorItem() = default;

QUuid CProcessorItem::GetNodeId() const
{
    return idNode;
}

void CProcessorItem::SetNodeId(const QUuid& id)
{
    idNode = id;
    setData(id, RoleNodeId);
    UpdateChildren();
}

void CProcessorItem::UpdateChildren()
{
    Q_ASSERT(GuiThread::IsCurrent());
    switch (data(RoleNodeType).toInt()) {
    case NodeAll:
        BuildPane();
        break;
    case NodeGroup:
        BuildMembers();
        break;
    case NodeProcessor:
        BuildInfo();
        break;
    default:
        break;
    }
}

void CProcessorItem::BuildPane()
{
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    removeRows(0, rowCount());
    int nRow = 0;
    for (const SProcessorGroupNode& group : std::as_const(node.listGroup)) {
        setChild(nRow++, 0, NewItem(NodeGroup, group.idNode));
    }
    for (const SProcessorNode& processor : std::as_const(node.listProcessor)) {
        setChild(nRow++, 0, NewItem(NodeProcessor, processor.idNode));
    }
}

void CProcessorItem::BuildMembers()
{
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    removeRows(0, rowCount());
    const auto itGroup = std::find_if(node.listGroup.cbegin(), node.listGroup.cend(),
                                      [this](const SProcessorGroupNode& group) { return group.idNode == idNode; });
    if (itGroup == node.listGroup.cend()) {
        return;
    }
    for (const SProcessorNode& member : std::as_const(itGroup->listProcessor)) {
        insertRow(rowCount(), NewItem(NodeProcessor, member.idNode));
    }
}

void CProcessorItem::BuildInfo()
{
    auto* pItem = new CProcessorItem(NodeInfo);
    pItem->setData(idNode, RoleNodeId);
    pItem->setData(sizeInfo, Qt::SizeHintRole);
    setChild(0, 0, pItem);
}
