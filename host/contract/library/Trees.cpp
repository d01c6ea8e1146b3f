#include "contract/library/Trees.h"

#include <algorithm>

namespace {

void Normalise(QList<SProcessorNode>& listProcessor)
{
    for (SProcessorNode& node : listProcessor) {
        node.idAux = QUuid();
        node.nPortA = 0;
        node.nPortB = 0;
    }
    std::sort(listProcessor.begin(), listProcessor.end(),
              [](const SProcessorNode& a, const SProcessorNode& b) { return a.idNode < b.idNode; });
}

void ForgetReports(QList<SProcessorNode>& listProcessor)
{
    for (SProcessorNode& node : listProcessor) {
        node.bOnline = false;
        node.nFailover = 0;
        node.nChief = 0;
        node.strProject.clear();
    }
}

SProcessorAllNode WithoutReports(const SProcessorAllNode& root)
{
    SProcessorAllNode result = Trees::Normal(root);
    ForgetReports(result.listProcessor);
    for (SProcessorGroupNode& group : result.listGroup) {
        ForgetReports(group.listProcessor);
        group.idChief = QUuid();
    }
    return result;
}

bool AreEqual(const SProcessorAllNode& a, const SProcessorAllNode& b)
{
    return a.bExpanded == b.bExpanded && a.listGroup == b.listGroup && a.listProcessor == b.listProcessor;
}

} // namespace

QList<SProcessorNode> Trees::GetProcessors(const SProcessorAllNode& root)
{
    QList<SProcessorNode> listProcessor = root.listProcessor;
    for (const SProcessorGroupNode& group : root.listGroup) {
        listProcessor += group.listProcessor;
    }
    return listProcessor;
}

QList<QUuid> Trees::GetIds(const SProcessorAllNode& root)
{
    QList<QUuid> listId;
    for (const SProcessorGroupNode& group : root.listGroup) {
        listId.append(group.idNode);
    }
    const QList<SProcessorNode> listProcessor = GetProcessors(root);
    for (const SProcessorNode& node : listProcessor) {
        listId.append(node.idNode);
    }
    return listId;
}

const SProcessorGroupNode* Trees::FindGroup(const SProcessorAllNode& root, const QUuid& id)
{
    const auto it = std::find_if(root.listGroup.begin(), root.listGroup.end(),
                                 [&](const SProcessorGroupNode& group) { return group.idNode == id; });
    return it == root.listGroup.end() ? nullptr : &*it;
}

const SNode* Trees::Find(const SProcessorAllNode& root, const QUuid& id)
{
    const SNode* pFound = FindGroup(root, id);
    const auto look = [&](const QList<SProcessorNode>& listProcessor) {
        for (const SProcessorNode& node : listProcessor) {
            pFound = node.idNode == id ? &node : pFound;
        }
    };
    look(root.listProcessor);
    for (const SProcessorGroupNode& group : root.listGroup) {
        look(group.listProcessor);
    }
    return pFound;
}

QUuid Trees::FindGroupOf(const SProcessorAllNode& root, const QUuid& idProcessor)
{
    for (const SProcessorGroupNode& group : root.listGroup) {
        for (const SProcessorNode& node : group.listProcessor) {
            if (node.idNode == idProcessor) {
                return group.idNode;
            }
        }
    }
    return {};
}

int Trees::FindPane(const SReading& reading, const QUuid& id)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        if (Find(reading.root[n], id)) {
            return n;
        }
    }
    return -1;
}

QString Trees::Describe(const SReading& reading, const QUuid& id)
{
    if (id.isNull()) {
        return QStringLiteral("the root");
    }
    const int nPane = FindPane(reading, id);
    return nPane < 0 ? QStringLiteral("an unknown id") : QStringLiteral("\"%1\"").arg(Find(reading.root[nPane], id)->strName);
}

SProcessorAllNode Trees::Normal(const SProcessorAllNode& root)
{
    SProcessorAllNode result = root;
    Normalise(result.listProcessor);
    for (SProcessorGroupNode& group : result.listGroup) {
        group.setAux.clear();
        Normalise(group.listProcessor);
    }
    QList<SProcessorGroupNode>& listGroup = result.listGroup;
    std::sort(listGroup.begin(), listGroup.end(),
              [](const SProcessorGroupNode& a, const SProcessorGroupNode& b) { return a.idNode < b.idNode; });
    return result;
}

bool Trees::HaveSameNodes(const SProcessorAllNode& a, const SProcessorAllNode& b)
{
    return AreEqual(WithoutReports(a), WithoutReports(b));
}

bool Trees::LookAlike(const SReading& a, const SReading& b)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        if (!AreEqual(Normal(a.root[n]), Normal(b.root[n])) || a.vecSelected[n] != b.vecSelected[n]) {
            return false;
        }
    }
    return a.bSimulator == b.bSimulator && a.bListLocked == b.bListLocked && a.bRefreshBlocked == b.bRefreshBlocked
        && a.bChiefMode == b.bChiefMode && a.strProject == b.strProject;
}
