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

void AddKnown(QSet<QUuid>& setKnown, const QSet<QUuid>& setAsked, const QList<SProcessorNode>& listProcessor)
{
    for (const SProcessorNode& processor : listProcessor) {
        if (setAsked.contains(processor.idNode)) {
            setKnown.insert(processor.idNode);
        }
    }
}

// Those of setAsked that a pane has; the null id is its root's. The set of all its ids would take far longer to fill.
QSet<QUuid> KnownOf(const QSet<QUuid>& setAsked, const SProcessorAllNode& nodeAll)
{
    QSet<QUuid> setKnown{ QUuid() };
    for (const SProcessorGroupNode& group : nodeAll.listGroup) {
        if (setAsked.contains(group.idNode)) {
            setKnown.insert(group.idNode);
        }
        AddKnown(setKnown, setAsked, group.listProcessor);
    }
    AddKnown(setKnown, setAsked, nodeAll.listProcessor);
    return setKnown;
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
    const QSet<QUuid> setKnown = KnownOf(QSet<QUuid>(vecId.cbegin(), vecId.cend()), nodeAll);
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
