#include "CorvidControl/devices/CDeviceCommands.h"

#include "CorvidControl/devices/CJobScope.h"
#include "CorvidControl/devices/DeviceTypes.h"
#include "CorvidControl/devices/IDeviceNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"

#include <QHostAddress>

#include <algorithm>

namespace {

constexpr quint32 nLocalAddress = 0xC0A80102; // 192.168.1.2
constexpr quint32 nLoopback = 0x7F000001;     // simulators live in this process
constexpr quint32 nFirstSimulatorPort = 9200;

SProcessorNode BuildSimulator(qint32 nType, int nNumber)
{
    SProcessorNode simulator;
    simulator.idNode = QUuid::createUuid();
    simulator.idAux = QUuid::createUuid();
    simulator.strName = QStringLiteral("Simulator %1").arg(nNumber);
    simulator.nModel = nType;
    simulator.strType = DeviceTypes::GetName(nType);
    simulator.nIP = nLoopback;
    simulator.nPortA = nFirstSimulatorPort + 2 * static_cast<quint32>(nNumber);
    simulator.nPortB = simulator.nPortA + 1;
    simulator.bOnline = true;
    return simulator;
}

} // namespace

CDeviceCommands::CDeviceCommands(CProcessorList& processorsIn, CJobs& jobsIn, IDeviceNetwork& networkIn)
    : processors(processorsIn), jobs(jobsIn), network(networkIn)
{ }

void CDeviceCommands::SetDeletionListener(const std::function<void(int nNodes)>& listenerNew)
{
    Q_ASSERT(!listenerDeletion);
    listenerDeletion = listenerNew;
}

void CDeviceCommands::Scan(EnOrigin origin)
{
    const SListCommand command{ CommandScan, QStringLiteral("Scanning the network"), {}, origin };
    const bool bLocked = processors.GetHost().IsLocked();
    if (bLocked || processors.GetHost().IsRefreshBlocked()) {
        processors.Refuse(SenderPrcBasic, command, { bLocked ? ReasonListLocked : ReasonRefreshBlocked, {} });
        return;
    }
    const CJobScope job(jobs, command.strText);
    const QList<SProcessorNode> listFound = network.Scan([&](int nAsked, int nAll) { job.SetProgress(nAsked, nAll); });
    for (const SProcessorNode& device : listFound) {
        if (processors.GetNodeType(device.idNode) == 0 && FindAddFault(device.nIP).IsNone()) {
            Adopt(device, OriginLibrary);
        }
    }
}

void CDeviceCommands::Add(quint32 nIP, EnOrigin origin)
{
    const QString strAddress = QHostAddress(nIP).toString();
    const SListCommand command{ CommandAddProcessor, QStringLiteral("Adding the processor at %1").arg(strAddress), strAddress,
                                origin };
    const SFault fault = FindAddFault(nIP);
    if (!fault.IsNone()) {
        processors.Refuse(SenderPrcBasic, command, fault);
        return;
    }
    const CJobScope job(jobs, command.strText);
    job.SetProgress(0, 1);
    TryAdd(nIP, command);
}

void CDeviceCommands::TryAdd(quint32 nIP, const SListCommand& command)
{
    SProcessorNode device;
    if (!network.Ask(nIP, device)) {
        processors.Refuse(SenderPrcBasic, command, { ReasonAddressNoAnswer, {} });
        return;
    }
    // A second request for the same address may have been quicker.
    const SFault faultLate = FindAddFault(nIP);
    if (!faultLate.IsNone()) {
        processors.Refuse(SenderPrcBasic, command, faultLate);
        return;
    }
    Adopt(device, command.origin);
}

void CDeviceCommands::AddSimulators(const SSimulatorRequest& request, EnOrigin origin)
{
    const SListCommand command{ CommandAddSimulators, QStringLiteral("Adding %1 simulators").arg(request.nCount), {}, origin };
    const int nPresent = processors.CopyTree(true).GetProcessorCount();
    if (!DeviceTypes::IsKnown(request.nType) || request.nOutput < 1 || request.nOutput > 3) {
        processors.Refuse(SenderPrcBasic, command, { ReasonNoSuchSimulator, {} });
        return;
    }
    if (request.nCount < 1 || request.nCount > processors.GetLimits().nSimulators - nPresent) {
        processors.Refuse(SenderPrcBasic, command, { ReasonSimulatorsFull, {} });
        return;
    }
    AdoptSimulators(request.nType, request.nCount, origin);
}

void CDeviceCommands::Delete(const QUuid& id, EnOrigin origin)
{
    const CNodeTree trees[]{ processors.CopyTree(false), processors.CopyTree(true) };
    for (const CNodeTree& tree : trees) {
        if (!tree.FindProcessor(id)) {
            continue;
        }
        const QString strName = tree.GetName(id);
        const SListCommand command{ CommandDelete, QStringLiteral("Deleting \"%1\"").arg(strName), strName, origin };
        const SFault fault = processors.FindDeleteFault(id);
        if (!fault.IsNone()) {
            processors.Refuse(SenderPrcBasic, command, fault);
            return;
        }
        const CJobScope job(jobs, command.strText);
        nDeleted = jobs.IsBusy() ? nDeleted.load() : 0;
        job.SetProgress(nDeleted, 0);
        AnnounceDeletion(id, 1);
        ReleaseAndRemove({ id }, [&] { nDeleted += processors.RemoveProcessor(id, origin) ? 1 : 0; });
        job.SetProgress(nDeleted, 0);
        return;
    }
}

void CDeviceCommands::DeleteGroup(const QUuid& id, bool bWithProcessors, EnOrigin origin)
{
    const auto remove = [&] {
        QList<QUuid> listGone;
        const QList<SProcessorNode> listProcessor = processors.RemoveGroup(id, bWithProcessors, origin);
        for (const SProcessorNode& processor : listProcessor) {
            listGone.append(processor.idNode);
        }
        processors.FollowNodes(listGone);
        return listGone.size();
    };
    const SProcessorGroupNode group = processors.CopyGroup(id);
    const int nMembers = bWithProcessors ? group.listProcessor.size() : 0;
    const SFault fault = bWithProcessors ? processors.FindDeleteFault(id) : SFault();
    if (fault.IsNone()) {
        AnnounceDeletion(id, 1 + nMembers);
    }
    if (nMembers == 0 || !fault.IsNone()) {
        remove(); // nothing to wait for, or it is refused there
        return;
    }
    QList<QUuid> listId;
    for (const SProcessorNode& processor : group.listProcessor) {
        listId.append(processor.idNode);
    }
    const CJobScope job(jobs, QStringLiteral("Deleting \"%1\" with its processors").arg(group.strName));
    job.SetProgress(0, 1 + nMembers);
    int nGone = 0;
    ReleaseAndRemove(listId, [&] { nGone = remove(); });
    nGone += processors.GetNodeType(id) == 0 ? 1 : 0;
    nDeleted += nGone;
    job.SetProgress(nGone, 1 + nMembers);
}

void CDeviceCommands::EndJob()
{
    nDeleted = 0;
}

quint32 CDeviceCommands::GetLocalAddress()
{
    return nLocalAddress;
}

QList<quint32> CDeviceCommands::GetReservedAddresses()
{
    // The router of the site and its time server.
    return { 0xC0A80101, 0xC0A801FE };
}

// Simulators are in no file: there is nothing to keep.
void CDeviceCommands::AnnounceDeletion(const QUuid& id, int nNodes) const
{
    if (listenerDeletion && !processors.GetHost().IsLocked() && processors.CopyTree(false).Contains(id)) {
        listenerDeletion(nNodes);
    }
}

SFault CDeviceCommands::FindAddFault(quint32 nIP) const
{
    if (nIP == nLocalAddress || GetReservedAddresses().contains(nIP)) {
        return { ReasonAddressReserved, {} };
    }
    return processors.FindAddFault(nIP);
}

// The network first: a report of the device may follow at once.
bool CDeviceCommands::Adopt(const SProcessorNode& device, EnOrigin origin)
{
    network.Adopt(device);
    const bool bAdded = processors.AddProcessor(device, false, origin);
    processors.FollowNodes({ device.idNode });
    return bAdded;
}

void CDeviceCommands::AdoptSimulators(qint32 nType, int nCount, EnOrigin origin)
{
    processors.AddSimulators(
        nCount,
        [&](const CNodeTree& tree) {
            QList<SProcessorNode> listSimulator;
            for (int nNumber = 1; listSimulator.size() < nCount; ++nNumber) {
                if (tree.FindByName(QStringLiteral("Simulator %1").arg(nNumber)).isNull()) {
                    listSimulator.append(BuildSimulator(nType, nNumber));
                }
            }
            return listSimulator;
        },
        origin);
}

// Gives back to the network what is still in the list afterwards: refused, or moved meanwhile.
void CDeviceCommands::ReleaseAndRemove(const QList<QUuid>& listId, const std::function<void()>& remove)
{
    network.Release(listId);
    remove();
    processors.FollowNodes(listId);
}
