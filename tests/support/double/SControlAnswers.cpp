#include "double/SControlAnswers.h"

#include "nodes/EnNodeType.h"

namespace {

template <class Fn> void ForEachProcessor(const SProcessorAllNode& root, Fn fn)
{
    for (const SProcessorGroupNode& group : root.listGroup) {
        for (const SProcessorNode& node : group.listProcessor) {
            fn(node, group.idNode);
        }
    }
    for (const SProcessorNode& node : root.listProcessor) {
        fn(node, QUuid());
    }
}

qint32 NodeTypeIn(const SProcessorAllNode& root, const QUuid& id)
{
    for (const SProcessorGroupNode& group : root.listGroup) {
        if (group.idNode == id) {
            return NodeGroup;
        }
    }
    qint32 nType = 0;
    ForEachProcessor(
        root, [&](const SProcessorNode& node, const QUuid&) { nType = node.idNode == id ? qint32(NodeProcessor) : nType; });
    return nType;
}

void SetExpandedIn(QList<SProcessorNode>& listNode, const QUuid& id, bool bExpanded)
{
    for (SProcessorNode& node : listNode) {
        node.bExpanded = node.idNode == id ? bExpanded : node.bExpanded;
    }
}

void SetExpandedIn(SProcessorAllNode& root, const QUuid& id, bool bExpanded)
{
    for (SProcessorGroupNode& group : root.listGroup) {
        group.bExpanded = group.idNode == id ? bExpanded : group.bExpanded;
        SetExpandedIn(group.listProcessor, id, bExpanded);
    }
    SetExpandedIn(root.listProcessor, id, bExpanded);
}

} // namespace

SProcessorAllNode& SControlAnswers::Tree(bool bSimulator)
{
    return bSimulator ? nodeSimulator : nodeDiscovered;
}

std::vector<QUuid>& SControlAnswers::Selection(bool bSimulator)
{
    return bSimulator ? vecSimulatorSelection : vecDiscoveredSelection;
}

std::vector<QUuid> SControlAnswers::SelectedProcessors()
{
    if (vecSelectedProcessors) {
        return *vecSelectedProcessors;
    }
    const std::vector<QUuid>& vecSelection = Selection(bSimulatorPane);
    const auto fnSelected = [&vecSelection](const QUuid& id) {
        return !id.isNull() && std::find(vecSelection.cbegin(), vecSelection.cend(), id) != vecSelection.cend();
    };
    std::vector<QUuid> vecId;
    ForEachProcessor(Tree(bSimulatorPane), [&](const SProcessorNode& node, const QUuid& idGroup) {
        if (fnSelected(node.idNode) || fnSelected(idGroup)) {
            vecId.push_back(node.idNode);
        }
    });
    return vecId;
}

qint32 SControlAnswers::SimulatorCount() const
{
    qint32 nCount = 0;
    ForEachProcessor(nodeSimulator, [&nCount](const SProcessorNode&, const QUuid&) { ++nCount; });
    return nSimulatorCount.value_or(nCount);
}

std::vector<uint> SControlAnswers::ListIPs() const
{
    std::vector<uint> vecIP;
    ForEachProcessor(nodeDiscovered, [&vecIP](const SProcessorNode& node, const QUuid&) { vecIP.push_back(node.nIP); });
    return vecListIP.value_or(vecIP);
}

qint32 SControlAnswers::NodeType(const QUuid& id) const
{
    if (id.isNull()) {
        return NodeAll;
    }
    const qint32 nType = NodeTypeIn(nodeDiscovered, id);
    return nType != 0 ? nType : NodeTypeIn(nodeSimulator, id);
}

void SControlAnswers::SetExpanded(const QUuid& id, bool bExpanded)
{
    if (id.isNull()) {
        Tree(bSimulatorPane).bExpanded = bExpanded;
        return;
    }
    SetExpandedIn(nodeDiscovered, id, bExpanded);
    SetExpandedIn(nodeSimulator, id, bExpanded);
}
