#include "CorvidControl/list/CSelection.h"

#include "CorvidControl/list/CNodeTree.h"

#include <algorithm>

bool CSelection::Set(const CNodeTree& tree, const std::vector<QUuid>& vecNew, bool& bChanged)
{
    std::vector<QUuid> vecKnown;
    std::copy_if(vecNew.cbegin(), vecNew.cend(), std::back_inserter(vecKnown),
                 [&](const QUuid& id) { return id.isNull() || tree.Contains(id); });
    if (vecKnown.empty() && !vecNew.empty()) {
        return false;
    }
    bChanged = vecKnown != vecId;
    vecId = vecKnown;
    return true;
}

void CSelection::Prune(const CNodeTree& tree)
{
    const auto isGone = [&](const QUuid& id) { return !id.isNull() && !tree.Contains(id); };
    const auto itGone = std::remove_if(vecId.begin(), vecId.end(), isGone);
    if (itGone == vecId.end()) {
        return;
    }
    vecId.erase(itGone, vecId.end());
    if (vecId.empty()) {
        vecId.push_back(QUuid());
    }
}

std::vector<QUuid> CSelection::FindProcessors(const CNodeTree& tree) const
{
    std::vector<QUuid> vecProcessor;
    const auto append = [&](const QUuid& id) {
        if (std::find(vecProcessor.cbegin(), vecProcessor.cend(), id) == vecProcessor.cend()) {
            vecProcessor.push_back(id);
        }
    };
    for (const QUuid& id : vecId) {
        const int nGroup = tree.FindGroup(id);
        if (nGroup >= 0) {
            for (const SProcessorNode& processor : tree.GetGroup(nGroup).listProcessor) {
                append(processor.idNode);
            }
        } else if (tree.FindProcessor(id)) {
            append(id);
        }
    }
    return vecProcessor;
}
