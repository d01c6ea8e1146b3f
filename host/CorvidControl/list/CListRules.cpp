#include "CorvidControl/list/CListRules.h"

#include "CorvidControl/list/NameRules.h"

#include <algorithm>

namespace {

SOutcome BuildRefused(EnRefusalReason reason)
{
    return { false, { reason, {} } };
}

} // namespace

CListRules::CListRules(CPanes& panesIn, const SListLimits& limitsIn) : panes(panesIn), limits(limitsIn) { }

SOutcome CListRules::AddGroup(int nPane, SProcessorGroupNode group)
{
    group.strName = NameRules::Clean(group.strName);
    const SFault fault = NameRules::FindReason(group.strName);
    if (!fault.IsNone()) {
        return { false, fault };
    }
    if (group.idNode.isNull() || panes.FindPane(group.idNode) >= 0) {
        return BuildRefused(ReasonIdTaken);
    }
    if (group.setAux.size() > limits.nAux) {
        return BuildRefused(ReasonTooManyNumbers);
    }
    if (panes.GetTree(nPane).GetRoot().listGroup.size() >= limits.nGroups) {
        return BuildRefused(ReasonGroupsFull);
    }
    panes.Edit(nPane).AppendGroup(group);
    return { true, {}, nPane };
}

SOutcome CListRules::AddProcessors(int nPane, const QList<SProcessorNode>& listProcessor)
{
    const auto isListed = [this](const SProcessorNode& processor) { return panes.FindPane(processor.idNode) >= 0; };
    if (std::any_of(listProcessor.cbegin(), listProcessor.cend(), isListed)) {
        return BuildRefused(ReasonAlreadyListed);
    }
    const int nMost = nPane == CPanes::nSimulator ? limits.nSimulators : limits.nProcessors;
    if (listProcessor.size() > nMost - panes.GetTree(nPane).GetProcessorCount()) {
        return BuildRefused(nPane == CPanes::nSimulator ? ReasonSimulatorsFull : ReasonListFull);
    }
    for (const SProcessorNode& processor : listProcessor) {
        panes.Edit(nPane).AppendProcessor(processor);
    }
    return { true, {}, nPane, listProcessor.size() };
}

SOutcome CListRules::Rename(const QUuid& id, const QString& strText)
{
    const QString strName = NameRules::Clean(strText);
    const int nPane = panes.FindPane(id);
    if (nPane < 0) {
        return BuildRefused(ReasonGone);
    }
    if (strName == panes.GetTree(nPane).GetName(id)) {
        return {};
    }
    const SFault fault = NameRules::FindReason(strName);
    if (!fault.IsNone()) {
        return { false, fault };
    }
    panes.Edit(nPane).SetName(id, strName);
    return { true, {}, nPane };
}

SOutcome CListRules::Move(const QUuid& id, const QUuid& idGroup)
{
    const int nPane = panes.FindPane(id);
    const std::optional<SNodePlace> place = panes.FindPlace(nPane, id);
    if (!place) {
        return BuildRefused(ReasonGone);
    }
    const int nGroup = idGroup.isNull() ? -1 : panes.GetTree(nPane).FindGroup(idGroup);
    if (nGroup < 0 && !idGroup.isNull()) {
        return BuildRefused(ReasonGroupGone);
    }
    return { panes.Edit(nPane).MoveProcessor(*place, nGroup), {}, nPane };
}

SOutcome CListRules::SetChief(const QUuid& idGroup, const QUuid& idChief)
{
    const int nPane = panes.FindPane(idGroup);
    const int nGroup = nPane < 0 ? -1 : panes.GetTree(nPane).FindGroup(idGroup);
    if (nGroup < 0) {
        return BuildRefused(ReasonGone);
    }
    const std::optional<SNodePlace> place = panes.FindPlace(nPane, idChief);
    if (!idChief.isNull() && (!place || place->nGroup != nGroup)) {
        return BuildRefused(ReasonNotMember);
    }
    return { panes.Edit(nPane).SetChief(nGroup, idChief), {}, nPane };
}

SOutcome CListRules::RemoveProcessor(const QUuid& id, const QString& strProject)
{
    const int nPane = panes.FindPane(id);
    const std::optional<SNodePlace> place = panes.FindPlace(nPane, id);
    const SFault fault = place ? FindUse(id, strProject) : SFault();
    if (!place || !fault.IsNone()) {
        return { false, fault };
    }
    panes.Edit(nPane).TakeProcessor(*place);
    panes.PruneSelection(nPane);
    return { true, {}, nPane };
}

SOutcome CListRules::RemoveGroup(const QUuid& id, bool bWithProcessors, const QString& strProject,
                                 QList<SProcessorNode>& listGone)
{
    const int nPane = panes.FindPane(id);
    const int nGroup = nPane < 0 ? -1 : panes.GetTree(nPane).FindGroup(id);
    if (nGroup < 0) {
        return {};
    }
    const SFault fault = bWithProcessors ? FindUse(id, strProject) : SFault();
    if (!fault.IsNone()) {
        return { false, fault };
    }
    const QList<SProcessorNode> listMember = panes.GetTree(nPane).GetGroup(nGroup).listProcessor;
    if (bWithProcessors) {
        listGone = listMember;
    }
    panes.Edit(nPane).RemoveGroup(nGroup, bWithProcessors);
    panes.PruneSelection(nPane);
    return { true, {}, nPane, 1 + listMember.size() };
}

SFault CListRules::FindUse(const QUuid& id, const QString& strProject) const
{
    const SProcessorNode* pProcessor = panes.FindRunning(id, strProject);
    return pProcessor ? SFault{ ReasonInUse, pProcessor->strName } : SFault();
}

SFault CListRules::FindAddFault(quint32 nIP) const
{
    const CNodeTree& tree = panes.GetTree(CPanes::nDiscovered);
    if (tree.GetProcessorCount() >= limits.nProcessors) {
        return { ReasonListFull, {} };
    }
    const QList<SProcessorNode> listProcessor = tree.GetProcessors();
    const bool bTaken = std::any_of(listProcessor.cbegin(), listProcessor.cend(),
                                    [&](const SProcessorNode& processor) { return processor.nIP == nIP; });
    return bTaken ? SFault{ ReasonAddressTaken, {} } : SFault();
}
