#include "CorvidControl/list/CProcessorList.h"

#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/list/NameRules.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "nodes/EnNodeType.h"

#include <algorithm>

namespace {

constexpr int nDiscovered = CPanes::nDiscovered;

QString GetGone()
{
    return QStringLiteral("it is not in the list");
}

} // namespace

CProcessorList::CProcessorList(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn, const CHostState& hostIn,
                               const SListLimits& limitsIn)
    : dispatcher(dispatcherIn), events(eventsIn), host(hostIn), limits(limitsIn)
{ }

void CProcessorList::SetEditListener(const std::function<void()>& listenerNew)
{
    Q_ASSERT(!listenerEdit && GetEdition().nEdit == 0);
    listenerEdit = listenerNew;
}

SProcessorAllNode CProcessorList::GetTree(bool bSimulator) const
{
    return CopyTree(bSimulator).GetRoot();
}

CNodeTree CProcessorList::CopyTree(bool bSimulator) const
{
    const Lock lock(mutex);
    return panes.Lend(bSimulator);
}

SListEdition CProcessorList::GetEdition() const
{
    const Lock lock(mutex);
    return { panes.Lend(nDiscovered).GetRoot(), nEdit };
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
        if (!panes.Select(bSimulatorPane, vecId, bChanged)) {
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
    return panes.GetSelection(bSimulator).GetIds();
}

std::vector<QUuid> CProcessorList::GetSelectedProcessors() const
{
    const Lock lock(mutex);
    const int nPane = bSimulatorPane;
    return panes.GetSelection(nPane).FindProcessors(panes.GetTree(nPane));
}

void CProcessorList::AddGroup(SProcessorGroupNode group)
{
    group.listProcessor.clear(); // its processors are moved into it one by one
    Carry(QStringLiteral("Adding the group \"%1\"").arg(group.strName),
          [&](const Lock& lock) { return TryAddGroup(lock, group); });
}

void CProcessorList::RenameNode(const QUuid& id, const QString& strName)
{
    Carry(QStringLiteral("Renaming to \"%1\"").arg(strName), [&](const Lock& lock) { return TryRename(lock, id, strName); });
}

void CProcessorList::MoveProcessor(const QUuid& id, const QUuid& idGroup)
{
    Carry(QStringLiteral("Moving a processor"), [&](const Lock& lock) { return TryMove(lock, id, idGroup); });
}

// A locked list can still be folded: that changes how it is looked at, not what it is.
void CProcessorList::SetExpanded(const QUuid& id, bool bExpanded)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome.nPane = id.isNull() ? static_cast<int>(bSimulatorPane) : panes.FindPane(id);
        outcome.bChanged = outcome.nPane >= 0 && panes.Edit(outcome.nPane).SetExpanded(id, bExpanded);
        Count(lock, outcome);
    }
    Announce(outcome, SenderPrcList, MessageListChanged);
}

void CProcessorList::SetChief(const QUuid& idGroup, const QUuid& idChief)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome.nPane = panes.FindPane(idGroup);
        const int nGroup = outcome.nPane < 0 ? -1 : panes.GetTree(outcome.nPane).FindGroup(idGroup);
        outcome.bChanged = nGroup >= 0 && panes.Edit(outcome.nPane).SetChief(nGroup, idChief);
        Count(lock, outcome);
    }
    Announce(outcome, SenderPreference, MessageChiefChanged);
}

QString CProcessorList::FindDeleteFault(const QUuid& id) const
{
    const Lock lock(mutex);
    return host.IsLocked() ? QStringLiteral("the list is locked") : FindUse(lock, id);
}

bool CProcessorList::RemoveProcessor(const QUuid& id)
{
    bool bGone = false;
    Carry(QStringLiteral("Deleting a processor"), [&](const Lock& lock) { return TryRemoveProcessor(lock, id, bGone); });
    return bGone;
}

QList<SProcessorNode> CProcessorList::RemoveGroup(const QUuid& id, bool bWithProcessors)
{
    QList<SProcessorNode> listGone;
    Carry(QStringLiteral("Deleting a group"),
          [&](const Lock& lock) { return TryRemoveGroup(lock, id, bWithProcessors, listGone); });
    return listGone;
}

QString CProcessorList::FindAddFault(quint32 nIP) const
{
    const Lock lock(mutex);
    if (host.IsLocked()) {
        return QStringLiteral("the list is locked");
    }
    if (panes.GetTree(nDiscovered).GetProcessorCount() >= limits.nProcessors) {
        return QStringLiteral("the list is full");
    }
    const QList<SProcessorNode> listProcessor = panes.GetTree(nDiscovered).GetProcessors();
    const bool bTaken = std::any_of(listProcessor.cbegin(), listProcessor.cend(),
                                    [&](const SProcessorNode& processor) { return processor.nIP == nIP; });
    return bTaken ? QStringLiteral("a processor of the list has this address") : QString();
}

bool CProcessorList::AddProcessor(const SProcessorNode& device, bool bSimulator)
{
    bool bAdded = false;
    const SProcessorNode processor = DeviceReport::Mend(device);
    Carry(QStringLiteral("Adding the processor \"%1\"").arg(processor.strName), [&](const Lock& lock) {
        const SOutcome outcome = TryAddProcessor(lock, processor, bSimulator);
        bAdded = outcome.bChanged;
        return outcome;
    });
    return bAdded;
}

void CProcessorList::ApplyReport(const SProcessorNode& report)
{
    {
        const SProcessorNode device = DeviceReport::Mend(report);
        const Lock lock(mutex);
        const int nPane = panes.FindPane(device.idNode);
        const std::optional<SNodePlace> place = panes.FindPlace(nPane, device.idNode);
        if (!place) {
            return;
        }
        SProcessorNode processor = panes.GetTree(nPane).GetProcessor(*place);
        processor.bOnline = device.bOnline;
        processor.nFailover = device.nFailover;
        processor.strProject = device.strProject;
        if (processor == panes.GetTree(nPane).GetProcessor(*place)) {
            return;
        }
        panes.Edit(nPane).EditProcessor(*place) = processor;
    }
    dispatcher.Post(SenderPrcRuntime, MessageDevicesChanged);
}

quint64 CProcessorList::ReplaceList(const SProcessorAllNode& node)
{
    quint64 nEditNow = 0;
    {
        const Lock lock(mutex);
        panes.Replace(nDiscovered, node);
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
    const int nPane = panes.FindPane(id);
    return nPane < 0 ? 0 : panes.GetTree(nPane).FindGroup(id) >= 0 ? NodeGroup : NodeProcessor;
}

bool CProcessorList::IsActive(const QUuid& id) const
{
    const Lock lock(mutex);
    const SProcessorNode* pProcessor = panes.FindProcessor(id);
    return pProcessor ? pProcessor->bOnline : panes.FindPane(id) >= 0;
}

bool CProcessorList::IsInUse(const QUuid& id) const
{
    const Lock lock(mutex);
    return !FindUse(lock, id).isEmpty();
}

QUuid CProcessorList::FindByName(const QString& strName) const
{
    const Lock lock(mutex);
    return panes.FindByName(strName);
}

void CProcessorList::Refuse(EnMessageSender sender, const QString& strCommand, const QString& strReason)
{
    events.Refuse(strCommand + QStringLiteral(" was refused: ") + strReason);
    dispatcher.Post(sender, MessageCommandRefused);
}

void CProcessorList::Carry(const QString& strCommand, const Command& command)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome = host.IsLocked() ? SOutcome{ false, QStringLiteral("the list is locked") } : command(lock);
        Count(lock, outcome);
    }
    if (!outcome.strRefused.isEmpty()) {
        Refuse(SenderPrcList, strCommand, outcome.strRefused);
    }
    Announce(outcome, SenderPrcList, MessageListChanged);
}

void CProcessorList::Announce(const SOutcome& outcome, EnMessageSender sender, int nMessage) const
{
    if (outcome.bChanged) {
        dispatcher.Post(sender, nMessage);
    }
    if (outcome.IsEdit() && listenerEdit) {
        listenerEdit();
    }
}

void CProcessorList::Count(const Lock& /*lock*/, const SOutcome& outcome)
{
    nEdit += outcome.IsEdit() ? 1 : 0;
}

CProcessorList::SOutcome CProcessorList::TryAddGroup(const Lock& /*lock*/, SProcessorGroupNode group)
{
    const int nPane = bSimulatorPane;
    group.strName = NameRules::Clean(group.strName);
    const QString strFault = NameRules::FindFault(group.strName);
    if (!strFault.isEmpty()) {
        return { false, strFault };
    }
    if (group.idNode.isNull() || panes.FindPane(group.idNode) >= 0) {
        return { false, QStringLiteral("its id is empty or taken") };
    }
    if (group.setAux.size() > limits.nAux) {
        return { false, QStringLiteral("it carries too many numbers") };
    }
    if (panes.GetTree(nPane).GetRoot().listGroup.size() >= limits.nGroups) {
        return { false, QStringLiteral("the list has all the groups it can have") };
    }
    panes.Edit(nPane).AppendGroup(group);
    return { true, {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryAddProcessor(const Lock& /*lock*/, const SProcessorNode& processor, bool bSimulator)
{
    if (panes.FindPane(processor.idNode) >= 0) {
        return { false, QStringLiteral("it is in the list already") };
    }
    if (panes.GetTree(bSimulator).GetProcessorCount() >= (bSimulator ? limits.nSimulators : limits.nProcessors)) {
        return { false, QStringLiteral("the list is full") };
    }
    panes.Edit(bSimulator).AppendProcessor(processor);
    return { true, {}, bSimulator };
}

CProcessorList::SOutcome CProcessorList::TryRename(const Lock& /*lock*/, const QUuid& id, const QString& strText)
{
    const QString strName = NameRules::Clean(strText);
    const int nPane = panes.FindPane(id);
    if (nPane < 0) {
        return { false, GetGone() };
    }
    if (strName == panes.GetTree(nPane).GetName(id)) {
        return {};
    }
    const QString strFault = NameRules::FindFault(strName);
    if (!strFault.isEmpty()) {
        return { false, strFault };
    }
    panes.Edit(nPane).SetName(id, strName);
    return { true, {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryMove(const Lock& /*lock*/, const QUuid& id, const QUuid& idGroup)
{
    const int nPane = panes.FindPane(id);
    const std::optional<SNodePlace> place = panes.FindPlace(nPane, id);
    if (!place) {
        return { false, GetGone() };
    }
    const int nGroup = idGroup.isNull() ? -1 : panes.GetTree(nPane).FindGroup(idGroup);
    if (nGroup < 0 && !idGroup.isNull()) {
        return { false, QStringLiteral("the group is not in its pane") };
    }
    return { panes.Edit(nPane).MoveProcessor(*place, nGroup), {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryRemoveProcessor(const Lock& lock, const QUuid& id, bool& bGone)
{
    const int nPane = panes.FindPane(id);
    const std::optional<SNodePlace> place = panes.FindPlace(nPane, id);
    const QString strFault = place ? FindUse(lock, id) : QString();
    bGone = strFault.isEmpty();
    if (!place || !bGone) {
        return { false, strFault };
    }
    panes.Edit(nPane).TakeProcessor(*place);
    panes.PruneSelection(nPane);
    return { true, {}, nPane };
}

CProcessorList::SOutcome CProcessorList::TryRemoveGroup(const Lock& lock, const QUuid& id, bool bWithProcessors,
                                                        QList<SProcessorNode>& listGone)
{
    const int nPane = panes.FindPane(id);
    const int nGroup = nPane < 0 ? -1 : panes.GetTree(nPane).FindGroup(id);
    if (nGroup < 0) {
        return {};
    }
    const QString strFault = bWithProcessors ? FindUse(lock, id) : QString();
    if (!strFault.isEmpty()) {
        return { false, strFault };
    }
    if (bWithProcessors) {
        listGone = panes.GetTree(nPane).GetGroup(nGroup).listProcessor;
    }
    panes.Edit(nPane).RemoveGroup(nGroup, bWithProcessors);
    panes.PruneSelection(nPane);
    return { true, {}, nPane };
}

// Why the node cannot go: it is in use. Empty when it can.
QString CProcessorList::FindUse(const Lock& /*lock*/, const QUuid& id) const
{
    const SProcessorNode* pProcessor = panes.FindRunning(id, host.GetProject());
    return pProcessor ? QStringLiteral("\"%1\" is in use, it runs the open project").arg(pProcessor->strName) : QString();
}
