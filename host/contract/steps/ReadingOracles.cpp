// The oracles of StepOracles.h about selections, and about what holds for every reading.
#include "contract/library/Trees.h"
#include "contract/steps/StepOracles.h"
#include "nodes/EnNodeType.h"

#include <algorithm>

namespace {

using Selection = std::vector<QUuid>;

bool HaveSameIds(Selection a, Selection b)
{
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    return a == b;
}

QString Draw(const SStepRun& run, const Selection& vecId)
{
    QStringList listName;
    for (const QUuid& id : vecId) {
        listName.append(Trees::Describe(run.before, id));
    }
    return QStringLiteral("{ %1 }").arg(listName.join(QStringLiteral(", ")));
}

bool IsSelection(const SStepRun& run)
{
    return run.verb == VerbSelect || run.verb == VerbSelectRoot;
}

QString PaneName(int nPane)
{
    return nPane == 1 ? QStringLiteral("Simulator") : QStringLiteral("Discovered");
}

QString FindIdFault(const SProcessorAllNode& root, const QString& strPane)
{
    QSet<QUuid> setSeen;
    const QList<QUuid> listId = Trees::GetIds(root);
    for (const QUuid& id : listId) {
        if (id.isNull() || setSeen.contains(id)) {
            return QStringLiteral("the id of \"%1\" in the %2 pane is %3")
                .arg(id.isNull() ? QString() : Trees::Find(root, id)->strName, strPane,
                     id.isNull() ? QStringLiteral("null") : QStringLiteral("not unique"));
        }
        setSeen.insert(id);
    }
    return {};
}

QString FindKindFault(const SProcessorAllNode& root, const QString& strPane)
{
    const auto isGroup = [](const SProcessorGroupNode& node) { return node.nNodeType == NodeGroup; };
    const auto isProcessor = [](const SProcessorNode& node) { return node.nNodeType == NodeProcessor; };
    const QList<SProcessorNode> listProcessor = Trees::GetProcessors(root);
    const bool bRight = root.nNodeType == NodeAll && std::all_of(root.listGroup.begin(), root.listGroup.end(), isGroup)
        && std::all_of(listProcessor.begin(), listProcessor.end(), isProcessor);
    return bRight ? QString() : QStringLiteral("a node of the %1 pane has the nNodeType of another kind").arg(strPane);
}

// Of the nodes that are in both, but idMoved.
template <typename Node> QList<QUuid> GetCommon(const QList<Node>& list, const QList<Node>& listOther, const QUuid& idMoved)
{
    QList<QUuid> listId;
    for (const Node& node : list) {
        const auto isSame = [&](const Node& other) { return other.idNode == node.idNode; };
        if (node.idNode != idMoved && std::any_of(listOther.begin(), listOther.end(), isSame)) {
            listId.append(node.idNode);
        }
    }
    return listId;
}

template <typename Node> bool KeepsOrder(const QList<Node>& list, const QList<Node>& listOther, const QUuid& idMoved)
{
    return GetCommon(list, listOther, idMoved) == GetCommon(listOther, list, idMoved);
}

bool KeepsOrder(const SProcessorAllNode& a, const SProcessorAllNode& b, const QUuid& idMoved)
{
    bool bKept = KeepsOrder(a.listProcessor, b.listProcessor, idMoved) && KeepsOrder(a.listGroup, b.listGroup, {});
    for (const SProcessorGroupNode& group : a.listGroup) {
        const SProcessorGroupNode* pOther = Trees::FindGroup(b, group.idNode);
        bKept = bKept && (!pOther || KeepsOrder(group.listProcessor, pOther->listProcessor, idMoved));
    }
    return bKept;
}

QString FindCarriedFault(const SProcessorAllNode& before, const SProcessorAllNode& after)
{
    for (const SProcessorGroupNode& group : after.listGroup) {
        const SProcessorGroupNode* pBefore = Trees::FindGroup(before, group.idNode);
        if (pBefore && pBefore->setAux != group.setAux) {
            return QStringLiteral("setAux of \"%1\" has changed").arg(group.strName);
        }
    }
    const QList<SProcessorNode> listBefore = Trees::GetProcessors(before);
    const QList<SProcessorNode> listAfter = Trees::GetProcessors(after);
    for (const SProcessorNode& node : listAfter) {
        for (const SProcessorNode& old : listBefore) {
            if (old.idNode == node.idNode
                && (old.idAux != node.idAux || old.nPortA != node.nPortA || old.nPortB != node.nPortB)) {
                return QStringLiteral("idAux or a port of \"%1\" has changed").arg(node.strName);
            }
        }
    }
    return {};
}

} // namespace

bool StepOracles::HasSelected(const SStepRun& run)
{
    return IsSelection(run) && run.bAnswer;
}

bool StepOracles::HasSelectedSeveral(const SStepRun& run)
{
    return HasSelected(run) && run.vecId.size() > 1 && HaveSameIds(run.after.vecSelected[run.nPane], run.vecId);
}

QString StepOracles::JudgeSelection(const SStepRun& run)
{
    if (run.verb != VerbSelect || (!run.bAnswer && !run.bAllowed)) {
        return {};
    }
    if (!run.bAnswer) {
        return QStringLiteral("the selection of nodes that are there was refused");
    }
    const Selection& vecAfter = run.after.vecSelected[run.nPane];
    return HaveSameIds(vecAfter, run.vecId) ? QString() : QStringLiteral("selected is %1 afterwards").arg(Draw(run, vecAfter));
}

QString StepOracles::JudgeSelectionOrder(const SStepRun& run)
{
    const Selection& vecAfter = run.after.vecSelected[run.nPane];
    if (!IsSelection(run) || !HaveSameIds(vecAfter, run.vecId) || vecAfter == run.vecId) {
        return {};
    }
    return QStringLiteral("the selection comes back as %1").arg(Draw(run, vecAfter));
}

QString StepOracles::JudgeOtherSelection(const SStepRun& run)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        const bool bUntouched = run.verb == VerbPane || (IsSelection(run) && n != run.nPane);
        if (bUntouched && !HaveSameIds(run.before.vecSelected[n], run.after.vecSelected[n])) {
            return QStringLiteral("the selection of the %1 pane is %2 now").arg(PaneName(n), Draw(run, run.after.vecSelected[n]));
        }
    }
    return {};
}

QString StepOracles::JudgeSelectedRoot(const SStepRun& run)
{
    const Selection& vecAfter = run.after.vecSelected[run.nPane];
    if (run.verb != VerbSelectRoot || (!run.bAnswer && !run.bAllowed)) {
        return {};
    }
    const bool bKept = run.bAnswer && std::find(vecAfter.begin(), vecAfter.end(), QUuid()) != vecAfter.end();
    return bKept ? QString()
                 : QStringLiteral("the root is not in the selection afterwards, which is %1").arg(Draw(run, vecAfter));
}

QString StepOracles::JudgeIds(const SStepRun& run)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        for (const QString& strFault :
             { FindIdFault(run.after.root[n], PaneName(n)), FindKindFault(run.after.root[n], PaneName(n)) }) {
            if (!strFault.isEmpty()) {
                return strFault;
            }
        }
    }
    return {};
}

QString StepOracles::JudgeCarried(const SStepRun& run)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        for (const QString& strFault : { FindCarriedFault(run.before.root[n], run.after.root[n]),
                                         FindCarriedFault(run.after.root[n], run.again.root[n]) }) {
            if (!strFault.isEmpty()) {
                return strFault;
            }
        }
    }
    return {};
}

// A name may decide where a row stands, so a step that gives one is compared only with the reading after it.
QString StepOracles::JudgeOrder(const SStepRun& run)
{
    const bool bNamed = run.verb == VerbRenameGroup || run.verb == VerbRenameProcessor;
    for (int n = 0; n < SReading::nPanes; ++n) {
        if (!KeepsOrder(run.after.root[n], run.again.root[n], {})) {
            return QStringLiteral("two readings without a change in between have the %1 pane in different orders")
                .arg(PaneName(n));
        }
        if (!bNamed && !KeepsOrder(run.before.root[n], run.after.root[n], run.id)) {
            return QStringLiteral("nodes of the %1 pane that the call is not about have changed their order").arg(PaneName(n));
        }
    }
    return {};
}
