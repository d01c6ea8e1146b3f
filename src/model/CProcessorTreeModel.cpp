#include "model/CProcessorTreeModel.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "model/CProcessorItem.h"
#include "model/RowValue.h"
#include "model/SRowKey.h"
#include "nodes/EnNodeType.h"
#include "tree/CProcessorTree.h"

namespace {

bool Matches(SProcessorNode node, const QString& strText)
{
    return node.MatchText(strText);
}

} // namespace

CProcessorTreeModel::CProcessorTreeModel(CProcessorTree* parent)
    : QStandardItemModel(parent), pRootItem(new CProcessorItem(NodeAll)), pTree(parent)
{
    pRootItem->SetNodeId(QUuid());
    insertRow(0, pRootItem);
}

CProcessorTreeModel::~CProcessorTreeModel() = default;

QModelIndex CProcessorTreeModel::GetRootIndex() const
{
    return indexFromItem(pRootItem);
}

QModelIndex CProcessorTreeModel::GetIndexById(const QUuid& id) const
{
    const auto it = mapIndex.constFind(id);
    return it == mapIndex.constEnd() ? GetRootIndex() : it.value();
}

QModelIndex CProcessorTreeModel::FindRow(const SRowKey& key) const
{
    const QModelIndex indexNode = mapIndex.value(key.idNode);
    const QModelIndex indexRow = key.nType == NodeInfo ? index(0, 0, indexNode) : indexNode;
    return SRowKey::Of(indexRow) == key ? indexRow : QModelIndex();
}

void CProcessorTreeModel::DealExpanded(const QModelIndex& index)
{
    SetExpanded(index, true);
}

void CProcessorTreeModel::DealCollapsed(const QModelIndex& index)
{
    SetExpanded(index, false);
}

void CProcessorTreeModel::SetExpanded(const QModelIndex& index, bool bExpanded)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (!index.isValid()) {
        return;
    }
    const QUuid id = RowValue::NodeId(index);
    g_pProcessorTreeData->SetExpanded(id, bExpanded);
    g_pPrcListControl->SetExpanded(id, bExpanded);
}

void CProcessorTreeModel::RebuildFromStore()
{
    Q_ASSERT(GuiThread::IsCurrent() && pTree->signalsBlocked());
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    mapIndex.clear(); // before its rows go: whoever asks in between gets the root
    pRootItem->UpdateChildren();
    pTree->setExpanded(GetRootIndex(), true);
    FillMap(node);
    RestoreExpansion(node);
}

// A refresh can fall between the copy and the reading of the rows. A group of the copy may then have no
// row, and without a parent the index of its first member would be the root's.
void CProcessorTreeModel::FillMap(const SProcessorAllNode& node)
{
    const QModelIndex indexRoot = GetRootIndex();
    mapIndex.insert(QUuid(), indexRoot);
    int nRow = 0;
    for (const SProcessorGroupNode& group : node.listGroup) {
        const QModelIndex indexGroup = index(nRow++, 0, indexRoot);
        MapRow(group.idNode, indexGroup);
        FillMap(group.listProcessor, indexGroup, 0);
    }
    FillMap(node.listProcessor, indexRoot, nRow);
}

void CProcessorTreeModel::FillMap(const QList<SProcessorNode>& listProcessor, const QModelIndex& indexParent, int nFirstRow)
{
    if (!indexParent.isValid()) {
        return;
    }
    int nRow = nFirstRow;
    for (const SProcessorNode& processor : listProcessor) {
        MapRow(processor.idNode, index(nRow++, 0, indexParent));
    }
}

void CProcessorTreeModel::MapRow(const QUuid& id, const QModelIndex& indexRow)
{
    if (indexRow.isValid() && !id.isNull()) { // the null id is the root's, whatever a record says
        mapIndex.insert(id, indexRow);
    }
}

void CProcessorTreeModel::RestoreExpansion(const SProcessorAllNode& node)
{
    const QModelIndex indexRoot = GetRootIndex();
    int nRow = 0;
    for (const SProcessorGroupNode& group : node.listGroup) {
        const QModelIndex indexGroup = index(nRow++, 0, indexRoot);
        pTree->setExpanded(indexGroup, group.bExpanded);
        RestoreExpansion(group.listProcessor, indexGroup, 0);
    }
    RestoreExpansion(node.listProcessor, indexRoot, nRow);
}

void CProcessorTreeModel::RestoreExpansion(const QList<SProcessorNode>& listProcessor, const QModelIndex& indexParent,
                                           int nFirstRow)
{
    if (!indexParent.isValid()) {
        return;
    }
    int nRow = nFirstRow;
    for (const SProcessorNode& processor : listProcessor) {
        pTree->setExpanded(index(nRow++, 0, indexParent), processor.bExpanded);
    }
}

void CProcessorTreeModel::SetSearchText(const QString& strText)
{
    Q_ASSERT(GuiThread::IsCurrent());
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    for (const SProcessorGroupNode& group : std::as_const(node.listGroup)) {
        FilterGroup(group, strText);
    }
    for (const SProcessorNode& processor : std::as_const(node.listProcessor)) {
        HideRow(processor.idNode, !Matches(processor, strText));
    }
}

void CProcessorTreeModel::FilterGroup(const SProcessorGroupNode& group, const QString& strText)
{
    const bool bNameMatches = group.strName.contains(strText, Qt::CaseInsensitive);
    bool bShown = bNameMatches;
    for (const SProcessorNode& member : group.listProcessor) {
        const bool bMatches = Matches(member, strText);
        bShown = bShown || bMatches;
        HideRow(member.idNode, !bMatches && !bNameMatches);
    }
    HideRow(group.idNode, !bShown);
}

void CProcessorTreeModel::HideRow(const QUuid& id, bool bHide)
{
    // The store may already know a node whose row is still to come. It must not fall back to the root,
    // which is never hidden.
    const QModelIndex indexRow = mapIndex.value(id);
    if (indexRow.isValid() && indexRow != GetRootIndex()) {
        pTree->setRowHidden(indexRow.row(), indexRow.parent(), bHide);
    }
}
