#include "tree/NodeSelection.h"

#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QSet>

#include <algorithm>

namespace {

int TypeOf(const QModelIndex& index)
{
    return RowValue::NodeType(index);
}

QUuid IdOf(const QModelIndex& index)
{
    return RowValue::NodeId(index);
}

void AddIds(QSet<QUuid>& setId, const QList<SProcessorNode>& listProcessor)
{
    for (const SProcessorNode& processor : listProcessor) {
        setId.insert(processor.idNode);
    }
}

QSet<QUuid> IdsOf(const SProcessorAllNode& nodeAll)
{
    QSet<QUuid> setId{ QUuid() };
    for (const SProcessorGroupNode& group : nodeAll.listGroup) {
        setId.insert(group.idNode);
        AddIds(setId, group.listProcessor);
    }
    AddIds(setId, nodeAll.listProcessor);
    return setId;
}

} // namespace

std::vector<QUuid> NodeSelection::GetIds(const QModelIndexList& listRow)
{
    std::vector<QUuid> vecId;
    for (const QModelIndex& index : listRow) {
        const int nType = TypeOf(index);
        const QUuid id = IdOf(index);
        if ((nType == NodeGroup || nType == NodeProcessor) && id.isNull()) {
            break;
        }
        if (nType == NodeAll || nType == NodeGroup || nType == NodeProcessor) {
            vecId.push_back(id);
        }
    }
    return vecId;
}

std::vector<QUuid> NodeSelection::GetKnownIds(const std::vector<QUuid>& vecId, const SProcessorAllNode& nodeAll)
{
    const QSet<QUuid> setKnown = IdsOf(nodeAll);
    std::vector<QUuid> vecKnown;
    std::copy_if(vecId.cbegin(), vecId.cend(), std::back_inserter(vecKnown),
                 [&setKnown](const QUuid& id) { return setKnown.contains(id); });
    return vecKnown;
}

QItemSelection NodeSelection::GetRanges(const QModelIndexList& listRow)
{
    QSet<QModelIndex> setDone;
    QItemSelection selection;
    for (auto it = listRow.crbegin(); it != listRow.crend(); ++it) {
        if (!setDone.contains(*it)) {
            setDone.insert(*it);
            selection.append(QItemSelectionRange(*it));
        }
    }
    std::reverse(selection.begin(), selection.end());
    return selection;
}

QModelIndex NodeSelection::FindProcessor(const QModelIndex& indexRoot, const QUuid& id)
{
    const int nRows = indexRoot.isValid() ? indexRoot.model()->rowCount(indexRoot) : 0;
    for (int i = 0; i < nRows; ++i) {
        const QModelIndex indexRow = indexRoot.model()->index(i, 0, indexRoot);
        if (TypeOf(indexRow) == NodeProcessor && IdOf(indexRow) == id) {
            return indexRow;
        }
        if (TypeOf(indexRow) == NodeGroup) {
            const QModelIndex indexMember = FindProcessor(indexRow, id);
            if (indexMember.isValid()) {
                return indexMember;
            }
        }
    }
    return QModelIndex();
}
