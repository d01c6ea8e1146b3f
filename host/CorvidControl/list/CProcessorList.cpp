#include "CorvidControl/list/CProcessorList.h"

#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/devices/IDeviceNetwork.h"
#include "CorvidControl/list/FaultText.h"
#include "CorvidControl/list/JobNumber.h"
#include "CorvidControl/list/NameRules.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "nodes/EnNodeType.h"

#include <QHostAddress>

namespace {

constexpr int nDiscovered = CPanes::nDiscovered;
constexpr int nSimulator = CPanes::nSimulator;

SFault GetLocked()
{
    return { ReasonListLocked, {} };
}

} // namespace

CProcessorList::CProcessorList(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn, const CHostState& hostIn,
                               const SListLimits& limitsIn)
    : dispatcher(dispatcherIn), events(eventsIn), host(hostIn),
      edits([this](const SListEdit& edit) { emit events.ListEdited(edit); }), rules(panes, limitsIn)
{ }

void CProcessorList::SetEditListener(const std::function<void()>& listenerNew)
{
    Q_ASSERT(!listenerEdit && GetEdition().nEdit == 0);
    listenerEdit = listenerNew;
}

void CProcessorList::SetNetwork(IDeviceNetwork& networkIn)
{
    Q_ASSERT(!pNetwork && GetEdition().nEdit == 0);
    pNetwork = &networkIn;
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

SListSnapshot CProcessorList::GetSnapshot() const
{
    const Lock lock(mutex);
    return TakeSnapshot(lock);
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

void CProcessorList::AddGroup(SProcessorGroupNode group, EnOrigin origin)
{
    group.listProcessor.clear(); // its processors are moved into it one by one
    Carry({ CommandAddGroup, QStringLiteral("Adding the group \"%1\"").arg(group.strName), NameRules::Clean(group.strName),
            origin },
          [&] { return rules.AddGroup(bSimulatorPane, group); });
}

void CProcessorList::RenameNode(const QUuid& id, const QString& strName, EnOrigin origin)
{
    Carry({ CommandRename, QStringLiteral("Renaming to \"%1\"").arg(strName), NameRules::Clean(strName), origin },
          [&] { return rules.Rename(id, strName); });
}

void CProcessorList::MoveProcessor(const QUuid& id, const QUuid& idGroup, EnOrigin origin)
{
    Carry({ CommandMove, QStringLiteral("Moving a processor"), FindName(id), origin }, [&] { return rules.Move(id, idGroup); });
}

// A locked list can still be folded: that changes how it is looked at, not what it is.
void CProcessorList::SetExpanded(const QUuid& id, bool bExpanded)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        outcome.nPane = id.isNull() ? static_cast<int>(bSimulatorPane) : panes.FindPane(id);
        outcome.bChanged = outcome.nPane >= 0 && panes.Edit(outcome.nPane).SetExpanded(id, bExpanded);
        nEdit += outcome.IsEdit() ? 1 : 0;
    }
    Announce(outcome, { SenderPrcList, MessageListChanged });
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
    Announce(outcome, { SenderPreference, MessageChiefChanged });
}

void CProcessorList::ChooseChief(const QUuid& idGroup, const QUuid& idChief)
{
    Carry({ CommandChief, QStringLiteral("Choosing a Chief"), FindName(idGroup) },
          [&] { return rules.SetChief(idGroup, idChief); }, { SenderPreference, MessageChiefChanged });
}

SFault CProcessorList::FindDeleteFault(const QUuid& id) const
{
    const Lock lock(mutex);
    return host.IsLocked() ? GetLocked() : rules.FindUse(id, host.GetProject());
}

bool CProcessorList::RemoveProcessor(const QUuid& id, EnOrigin origin)
{
    bool bGone = false;
    Carry({ CommandDelete, QStringLiteral("Deleting a processor"), FindName(id), origin }, [&] {
        const SOutcome outcome = rules.RemoveProcessor(id, host.GetProject());
        bGone = outcome.fault.IsNone();
        return outcome;
    });
    return bGone;
}

QList<SProcessorNode> CProcessorList::RemoveGroup(const QUuid& id, bool bWithProcessors, EnOrigin origin)
{
    QList<SProcessorNode> listGone;
    const EnListCommand command = bWithProcessors ? CommandDeleteGroup : CommandUngroup;
    Carry({ command, QStringLiteral("Deleting a group"), FindName(id), origin },
          [&] { return rules.RemoveGroup(id, bWithProcessors, host.GetProject(), listGone); });
    return listGone;
}

SFault CProcessorList::FindAddFault(quint32 nIP) const
{
    const Lock lock(mutex);
    return host.IsLocked() ? GetLocked() : rules.FindAddFault(nIP);
}

bool CProcessorList::AddProcessor(const SProcessorNode& device, bool bSimulator, EnOrigin origin)
{
    const SProcessorNode processor = DeviceReport::Mend(device);
    bool bAdded = false;
    Carry({ CommandAddProcessor, QStringLiteral("Adding the processor \"%1\"").arg(processor.strName),
            QHostAddress(processor.nIP).toString(), origin },
          [&] {
              const SOutcome outcome = rules.AddProcessors(bSimulator, { processor });
              bAdded = outcome.bChanged;
              return outcome;
          });
    return bAdded;
}

bool CProcessorList::AddSimulators(int nCount, const std::function<QList<SProcessorNode>(const CNodeTree&)>& build,
                                   EnOrigin origin)
{
    SListCommand command{ CommandAddSimulators, QStringLiteral("Adding %1 simulators").arg(nCount), {}, origin };
    bool bAdded = false;
    Carry(command, [&] {
        const QList<SProcessorNode> listSimulator = build(panes.GetTree(nSimulator));
        const SOutcome outcome = rules.AddProcessors(nSimulator, listSimulator);
        command.strName = listSimulator.first().strName;
        bAdded = outcome.bChanged;
        if (pNetwork && bAdded) {
            for (const SProcessorNode& simulator : std::as_const(listSimulator)) {
                pNetwork->Follow(simulator);
            }
        }
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

void CProcessorList::ReportEdits()
{
    edits.Deliver();
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
    return !rules.FindUse(id, host.GetProject()).IsNone();
}

QUuid CProcessorList::FindByName(const QString& strName) const
{
    const Lock lock(mutex);
    return panes.FindByName(strName);
}

void CProcessorList::Refuse(EnMessageSender sender, const SListCommand& command, const SFault& fault)
{
    const QString strLine = command.strText + QStringLiteral(" was refused: ") + FaultText::Build(fault);
    events.Refuse(strLine);
    dispatcher.Post(sender, MessageCommandRefused);
    if (command.origin == OriginUser) {
        events.ReportRefusal(command, fault, strLine);
    }
}

void CProcessorList::Carry(const SListCommand& command, const Body& body)
{
    Carry(command, body, { SenderPrcList, MessageListChanged });
}

void CProcessorList::Carry(const SListCommand& command, const Body& body, const SNotice& notice)
{
    SOutcome outcome;
    {
        const Lock lock(mutex);
        const SListSnapshot before = command.origin == OriginUser ? TakeSnapshot(lock) : SListSnapshot();
        outcome = host.IsLocked() ? SOutcome{ false, GetLocked() } : body();
        Count(lock, outcome);
        if (outcome.bChanged) {
            Append(lock, command, outcome.nNodes, before);
        }
    }
    if (!outcome.fault.IsNone()) {
        Refuse(SenderPrcList, command, outcome.fault);
    }
    Announce(outcome, notice);
    edits.Deliver();
}

void CProcessorList::Announce(const SOutcome& outcome, const SNotice& notice)
{
    if (outcome.bChanged) {
        dispatcher.Post(notice.sender, notice.nMessage);
    }
    if (outcome.IsEdit() && listenerEdit) {
        listenerEdit();
    }
}

void CProcessorList::Count(const Lock& /*lock*/, const SOutcome& outcome)
{
    nEdit += outcome.IsEdit() ? 1 : 0;
    nEdition += outcome.bChanged ? 1 : 0;
}

// The list has been changed and counted.
void CProcessorList::Append(const Lock& lock, const SListCommand& command, int nNodes, const SListSnapshot& before)
{
    if (command.origin == OriginUser) {
        edits.Append(
            { command.command, NameRules::GetLine(command.strName), nNodes, before, TakeSnapshot(lock), JobNumber::Get() });
    }
}

SListSnapshot CProcessorList::TakeSnapshot(const Lock& /*lock*/) const
{
    return { panes.Lend(nDiscovered).GetRoot(), panes.Lend(nSimulator).GetRoot(), nEdition };
}

// Empty for one that is gone.
QString CProcessorList::FindName(const QUuid& id) const
{
    const Lock lock(mutex);
    const int nPane = panes.FindPane(id);
    return nPane < 0 ? QString() : panes.GetTree(nPane).GetName(id);
}
