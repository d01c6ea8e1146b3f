#include "CorvidControl/list/CPanes.h"

#include <algorithm>

namespace {

bool IsRunning(const SProcessorNode& processor, const QString& strProject)
{
    return processor.bOnline && !strProject.isEmpty() && processor.strProject == strProject;
}

} // namespace

const CNodeTree& CPanes::Lend(int nPane) const
{
    arrLent.at(nPane) = true;
    return arrTree.at(nPane);
}

// What was lent to a reader is never written again, it is left to the reader: the implicit sharing of Qt's
// lists sees that a reader has let go, but not in which order.
CNodeTree& CPanes::Edit(int nPane)
{
    CNodeTree& tree = arrTree.at(nPane);
    if (arrLent.at(nPane)) {
        tree.Unshare();
    }
    arrLent.at(nPane) = false;
    return tree;
}

void CPanes::Replace(int nPane, const SProcessorAllNode& node)
{
    arrTree.at(nPane).SetRoot(node);
    arrLent.at(nPane) = true;
    PruneSelection(nPane);
}

bool CPanes::Select(int nPane, const std::vector<QUuid>& vecId, bool& bChanged)
{
    return arrSelection.at(nPane).Set(arrTree.at(nPane), vecId, bChanged);
}

void CPanes::PruneSelection(int nPane)
{
    arrSelection.at(nPane).Prune(arrTree.at(nPane));
}

int CPanes::FindPane(const QUuid& id) const
{
    return arrTree[nDiscovered].Contains(id) ? nDiscovered : arrTree[nSimulator].Contains(id) ? nSimulator : -1;
}

const SProcessorNode* CPanes::FindProcessor(const QUuid& id) const
{
    for (const CNodeTree& tree : arrTree) {
        const std::optional<SNodePlace> place = tree.FindProcessor(id);
        if (place) {
            return &tree.GetProcessor(*place);
        }
    }
    return nullptr;
}

QUuid CPanes::FindByName(const QString& strName) const
{
    const QUuid id = arrTree[nDiscovered].FindByName(strName);
    return id.isNull() ? arrTree[nSimulator].FindByName(strName) : id;
}

std::optional<SNodePlace> CPanes::FindPlace(int nPane, const QUuid& id) const
{
    return nPane < 0 ? std::nullopt : arrTree.at(nPane).FindProcessor(id);
}

const SProcessorNode* CPanes::FindRunning(const QUuid& id, const QString& strProject) const
{
    const int nPane = FindPane(id);
    if (nPane < 0) {
        return nullptr;
    }
    const CNodeTree& tree = arrTree.at(nPane);
    const int nGroup = tree.FindGroup(id);
    if (nGroup < 0) {
        const SProcessorNode& processor = tree.GetProcessor(*tree.FindProcessor(id));
        return IsRunning(processor, strProject) ? &processor : nullptr;
    }
    const QList<SProcessorNode>& listMember = tree.GetGroup(nGroup).listProcessor;
    const auto isRunning = [&](const SProcessorNode& processor) { return IsRunning(processor, strProject); };
    const auto it = std::find_if(listMember.cbegin(), listMember.cend(), isRunning);
    return it == listMember.cend() ? nullptr : &*it;
}
