#include "CorvidControl/list/CProcessorList.h"

#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/list/CNameRules.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "nodes/EnNodeType.h"

#include <algorithm>

namespace {

using Lock = std::lock_guard<std::mutex>;

QString GetGone()
{
    return QStringLiteral("it is not in the list");
}

} // namespace

CProcessorList::CProcessorList(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn, const CHostState& hostIn,
                               const SListLimits& limitsIn)
    : dispatcher(dispatcherIn), events(eventsIn), host(hostIn), limits(limitsIn)
{ }

SProcessorAllNode CProcessorList::GetTree(bool bSimulator) const
{
    return CopyTree(bSimulator).GetRoot();
}

CNodeTree CProcessorList::CopyTree(bool bSimulator) const
{
    const Lock lock(mutex);
    bLent[bSimulator] = true;
    return tree[bSimulator];
}

SListEdition CProcessorList::GetEdition() const
{
    const Lock lock(mutex);
    bLent[0] = true;
    return { tree[0].GetRoot(), nEdit };
}

SProcessorGroupNode CProcessorList::CopyGroup(const QUuid& id) const
{
    for (const bool bSimulator : { false, true }) {
        const CNodeTree treeNow = CopyTree(bSimulator);
        const int nGroup = treeNow.FindGroup(id);
        if (nGroup >= 0) {
            return treeNow.GetGroup(nGroup);
        }
    }
    return {};
}

void CProcessorList::SetSimulatorPane(bool bSimulator)
{
    if (bSimulatorPane.exchange(bSimulator) != bSimulator) {
        dispatcher.Post(SenderRuntime, MessageSelectionChanged);
    }
}

bool CProcessorList::SetSelection(const std::vector<QUuid>& vecId)
{
    bool bChanged = false;
    {
        const Lock lock(mutex);
        const int nPane = bSimulatorPane;
        if (!selection[nPane].Set(tree[nPane], vecId, bChanged)) {
            return false;
        }
    }
    if (bChanged) {
        dispatcher.Post(SenderRuntime, MessageSelectionChanged);
    }
    return true;
}

std::vector<QUuid> CProcessorList::GetSelection(bool bSimulator) const
{
    const Lock lock(mutex);
    return selection[bSimulator].GetIds();
}

std::vector<QUuid> CProcessorList::GetSelectedProcessors() const
{
    const Lock lock(mutex);
    const int nPane = bSimulatorPane;
    return selection[nPane].FindProcessors(tree[nPane]);
}

void CProcessorList::AddGroup(SProcessorGroupNode group)
{
    group.listProcessor.clear(); // its processors are moved into it one by one
    Carry(QStringLiteral("Adding the group \"%1\"").arg(group.strName), [&] { return TryAddGroup(group); });
}

void CProcessorList::RenameNode(const QUuid& id, const QString& strName)
{
    Carry(QStringLiteral("Renaming to \"%1\"").arg(strName), [&] { return TryRename(id, strName); });
}

void CProcessorList::MoveProcessor(const QUuid& id, const QUuid& idGroup)
{
    Carry(QStringLiteral("Moving a processor"), [&] { return TryMove(id, idGroup); });
}

// A locked list can still be folded: that changes how it is looked at, not what it is.
void CProcessorList::SetExpanded(const QUuid& id, bool bExpanded)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome.nPane = id.isNull() ? static_cast<int>(bSimulatorPane) : FindPane(id);
        outcome.bChanged = outcome.nPane >= 0 && Edit(outcome.nPane).SetExpanded(id, bExpanded);
        Count(outcome);
    }
    Tell(outcome, SenderPrcList, MessageListChanged);
}

void CProcessorList::SetChief(const QUuid& idGroup, const QUuid& idChief)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome.nPane = FindPane(idGroup);
        const int nGroup = outcome.nPane < 0 ? -1 : tree[outcome.nPane].FindGroup(idGroup);
        outcome.bChanged = nGroup >= 0 && Edit(outcome.nPane).SetChief(nGroup, idChief);
        Count(outcome);
    }
    Tell(outcome, SenderPreference, MessageChiefChanged);
}

QString CProcessorList::FindDeleteFault(const QUuid& id) const
{
    const Lock lock(mutex);
    return host.IsLocked() ? QStringLiteral("the list is locked") : TryFindDeleteFault(id);
}

bool CProcessorList::RemoveProcessor(const QUuid& id)
{
    bool bGone = false;
    Carry(QStringLiteral("Deleting a processor"), [&]() -> SOutcome {
        const int nPane = FindPane(id);
        const std::optional<SNodePlace> place = nPane < 0 ? std::nullopt : tree[nPane].FindProcessor(id);
        bGone = !place;
        if (!place) {
            return {};
        }
        const QString strFault = TryFindDeleteFault(id);
        if (!strFault.isEmpty()) {
            return { false, strFault };
        }
        Edit(nPane).TakeProcessor(*place);
        selection[nPane].Prune(tree[nPane]);
        bGone = true;
        return { true, {}, nPane };
    });
    return bGone;
}

QList<SProcessorNode> CProcessorList::RemoveGroup(const QUuid& id, bool bWithProcessors)
{
    QList<SProcessorNode> listGone;
    Carry(QStringLiteral("Deleting a group"), [&]() -> SOutcome {
        const int nPane = FindPane(id);
        const int nGroup = nPane < 0 ? -1 : tree[nPane].FindGroup(id);
        if (nGroup < 0) {
            return {};
        }
        const QString strFault = bWithProcessors ? TryFindDeleteFault(id) : QString();
        if (!strFault.isEmpty()) {
            return { false, strFault };
        }
        if (bWithProcessors) {
            listGone = tree[nPane].GetGroup(nGroup).listProcessor;
        }
        Edit(nPane).RemoveGroup(nGroup, bWithProcessors);
        selection[nPane].Prune(tree[nPane]);
        return { true, {}, nPane };
    });
    return listGone;
}

QString CProcessorList::FindAddFault(quint32 nIP) const
{
    const Lock lock(mutex);
    if (host.IsLocked()) {
        return QStringLiteral("the list is locked");
    }
    if (tree[0].GetProcessorCount() >= limits.nProcessors) {
        return QStringLiteral("the list is full");
    }
    const QList<SProcessorNode> listProcessor = tree[0].GetProcessors();
    const bool bTaken = std::any_of(listProcessor.cbegin(), listProcessor.cend(),
                                    [&](const SProcessorNode& processor) { return processor.nIP == nIP; });
    return bTaken ? QStringLiteral("a processor of the list has this address") : QString();
}

bool CProcessorList::AddProcessor(const SProcessorNode& device, bool bSimulator)
{
    bool bAdded = false;
    const SProcessorNode processor = DeviceReport::Mend(device);
    Carry(QStringLiteral("Adding the processor \"%1\"").arg(processor.strName), [&]() -> SOutcome {
        if (FindPane(processor.idNode) >= 0) {
            return { false, QStringLiteral("it is in the list already") };
        }
        if (tree[bSimulator].GetProcessorCount() >= (bSimulator ? limits.nSimulators : limits.nProcessors)) {
            return { false, QStringLiteral("the list is full") };
        }
        Edit(bSimulator).AppendProcessor(processor);
        bAdded = true;
        return { true, {}, bSimulator };
    });
    return bAdded;
}

void CProcessorList::ApplyReport(const SProcessorNode& report)
{
    {
        const SProcessorNode device = DeviceReport::Mend(report);
        const Lock lock(mutex);
        const int nPane = FindPane(device.idNode);
        const std::optional<SNodePlace> place = nPane < 0 ? std::nullopt : tree[nPane].FindProcessor(device.idNode);
        if (!place) {
            return;
        }
        SProcessorNode processor = tree[nPane].GetProcessor(*place);
        processor.bOnline = device.bOnline;
        processor.nFailover = device.nFailover;
        processor.strProject = device.strProject;
        if (processor == tree[nPane].GetProcessor(*place)) {
            return;
        }
        Edit(nPane).EditProcessor(*place) = processor;
    }
    dispatcher.Post(SenderPrcRuntime, MessageDevicesChanged);
}

quint64 CProcessorList::ReplaceList(const SProcessorAllNode& node)
{
    quint64 nEditNow = 0;
    {
        const Lock lock(mutex);
        tree[0].SetRoot(node);
        bLent[0] = true;
        selection[0].Prune(tree[0]);
        nEditNow = ++nEdit;
    }
    dispatcher.Post(SenderPrcList, MessageListChanged);
    return nEditNow;
}

int CProcessorList::GetNodeType(const QUuid& id) const
{
    const Lock lock(mutex);
    if (id.isNull()) {
        return NodeAll;
    }
    const int nPane = FindPane(id);
    return nPane < 0 ? 0 : tree[nPane].FindGroup(id) >= 0 ? NodeGroup : NodeProcessor;
}

bool CProcessorList::IsActive(const QUuid& id) const
{
    const Lock lock(mutex);
    const SProcessorNode* pProcessor = FindProcessor(id);
    return pProcessor ? pProcessor->bOnline : FindPane(id) >= 0;
}

bool CProcessorList::IsInUse(const QUuid& id) const
{
    const Lock lock(mutex);
    return !TryFindDeleteFault(id).isEmpty();
}

QUuid CProcessorList::FindByName(const QString& strName) const
{
    const Lock lock(mutex);
    const QUuid id = tree[0].FindByName(strName);
    return id.isNull() ? tree[1].FindByName(strName) : id;
}

void CProcessorList::Refuse(EnMessageSender sender, const QString& strCommand, const QString& strReason)
{
    events.Refuse(strCommand + QStringLiteral(" was refused: ") + strReason);
    dispatcher.Post(sender, MessageCommandRefused);
}

void CProcessorList::Carry(const QString& strCommand, const std::function<SOutcome()>& command)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome = host.IsLocked() ? SOutcome{ false, QStringLiteral("the list is locked") } : command();
        Count(outcome);
    }
    if (!outcome.strRefused.isEmpty()) {
        Refuse(SenderPrcList, strCommand, outcome.strRefused);
    }
    Tell(outcome, SenderPrcList, MessageListChanged);
}

void CProcessorList::Tell(const SOutcome& outcome, EnMessageSender sender, int nMessage) const
{
    if (outcome.bChanged) {
        dispatcher.Post(sender, nMessage);
    }
    if (outcome.IsEdit() && listenerEdit) {
        listenerEdit();
    }
}

// All below need the lock.

// The tree to write to. What was lent to a reader is never written again, it is left to the reader: the
// implicit sharing of Qt's lists sees that a reader has let go, but not in which order.
CNodeTree& CProcessorList::Edit(int nPane)
{
    if (bLent[nPane]) {
        tree[nPane].Unshare();
    }
    bLent[nPane] = false;
    return tree[nPane];
}

CProcessorList::SOutcome CProcessorList::TryAddGroup(SProcessorGroupNode group)
{
    const int nPane = bSimulatorPane;
    group.strName = CNameRules::Clean(group.strName);
    const QString strFault = CNameRules::FindFault(group.strName);
    if (!strFault.isEmpty()) {
        return { false, strFault };
    }
    if (group.idNode.isNull() || FindPane(group.idNode) >= 0) {
        return { false, QStringLiteral("its id is empty or taken") };
    }
    if (group.setAux.size() > limits.nAux) {
        return { false, QStringLiteral("it carries too many numbers") };
    }
    if (tree[nPane].GetRoot().listGroup.size() >= limits.nGroups) {
        return { false, QStringLiteral("the list has all the groups it can have") };
    }
    Edit(nPane).AppendGroup(group);
    return { true, {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryRename(const QUuid& id, const QString& strText)
{
    const QString strName = CNameRules::Clean(strText);
    const int nPane = FindPane(id);
    if (nPane < 0) {
        return { false, GetGone() };
    }
    const int nGroup = tree[nPane].FindGroup(id);
    const std::optional<SNodePlace> place = tree[nPane].FindProcessor(id);
    if (strName == (place ? tree[nPane].GetProcessor(*place).strName : tree[nPane].GetGroup(nGroup).strName)) {
        return {};
    }
    const QString strFault = CNameRules::FindFault(strName);
    if (!strFault.isEmpty()) {
        return { false, strFault };
    }
    if (place) {
        Edit(nPane).EditProcessor(*place).strName = strName;
    } else {
        Edit(nPane).EditGroup(nGroup).strName = strName;
    }
    return { true, {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryMove(const QUuid& id, const QUuid& idGroup)
{
    const int nPane = FindPane(id);
    const std::optional<SNodePlace> place = nPane < 0 ? std::nullopt : tree[nPane].FindProcessor(id);
    if (!place) {
        return { false, GetGone() };
    }
    const int nGroup = idGroup.isNull() ? -1 : tree[nPane].FindGroup(idGroup);
    if (nGroup < 0 && !idGroup.isNull()) {
        return { false, QStringLiteral("the group is not in its pane") };
    }
    return { Edit(nPane).MoveProcessor(*place, nGroup), {}, nPane };
}

QString CProcessorList::TryFindDeleteFault(const QUuid& id) const
{
    const int nPane = FindPane(id);
    const int nGroup = nPane < 0 ? -1 : tree[nPane].FindGroup(id);
    const SProcessorNode* pProcessor = FindProcessor(id);
    const QList<SProcessorNode> listProcessor = nGroup >= 0 ? tree[nPane].GetGroup(nGroup).listProcessor
        : pProcessor                                        ? QList<SProcessorNode>{ *pProcessor }
                                                            : QList<SProcessorNode>();
    const QString strProject = host.GetProject();
    for (const SProcessorNode& processor : listProcessor) {
        if (IsRunning(processor, strProject)) {
            return QStringLiteral("\"%1\" is in use, it runs the open project").arg(processor.strName);
        }
    }
    return {};
}

int CProcessorList::FindPane(const QUuid& id) const
{
    return tree[0].Contains(id) ? 0 : tree[1].Contains(id) ? 1 : -1;
}

const SProcessorNode* CProcessorList::FindProcessor(const QUuid& id) const
{
    for (const CNodeTree& treeNow : tree) {
        const std::optional<SNodePlace> place = treeNow.FindProcessor(id);
        if (place) {
            return &treeNow.GetProcessor(*place);
        }
    }
    return nullptr;
}

bool CProcessorList::IsRunning(const SProcessorNode& processor, const QString& strProject)
{
    return processor.bOnline && !strProject.isEmpty() && processor.strProject == strProject;
}
