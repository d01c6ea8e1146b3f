#include "CorvidControl/devices/CDeviceCommands.h"

#include "CorvidControl/devices/DeviceTypes.h"
#include "CorvidControl/devices/IDeviceNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"
#include "controlhost/CJobs.h"

#include <QHostAddress>

#include <algorithm>

namespace {

constexpr quint32 nLocalAddress = 0xC0A80102; // 192.168.1.2
constexpr quint32 nLoopback = 0x7F000001;     // simulators live in this process
constexpr quint32 nFirstSimulatorPort = 9200;

class CJobScope
{
public:
    CJobScope(CJobs& jobsIn, const QString& strJobIn) : jobs(jobsIn), strJob(strJobIn)
    {
        jobs.Begin(strJob);
    }
    ~CJobScope()
    {
        jobs.End(strJob);
    }
    Q_DISABLE_COPY_MOVE(CJobScope)

private:
    CJobs& jobs;
    const QString strJob;
};

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

void CDeviceCommands::Scan()
{
    const QString strCommand = QStringLiteral("Scanning the network");
    if (processors.GetHost().IsLocked() || processors.GetHost().IsRefreshBlocked()) {
        processors.Refuse(SenderPrcBasic, strCommand, QStringLiteral("refresh is blocked"));
        return;
    }
    const CJobScope job(jobs, strCommand);
    const QList<SProcessorNode> listFound = network.Scan();
    for (const SProcessorNode& device : listFound) {
        if (processors.GetNodeType(device.idNode) == 0 && FindAddFault(device.nIP).isEmpty()) {
            Adopt(device, false);
        }
    }
}

void CDeviceCommands::Add(quint32 nIP)
{
    const QString strCommand = QStringLiteral("Adding the processor at %1").arg(QHostAddress(nIP).toString());
    const QString strFault = FindAddFault(nIP);
    if (!strFault.isEmpty()) {
        processors.Refuse(SenderPrcBasic, strCommand, strFault);
        return;
    }
    const CJobScope job(jobs, strCommand);
    SProcessorNode device;
    if (!network.Ask(nIP, device)) {
        processors.Refuse(SenderPrcBasic, strCommand, QStringLiteral("nothing answers there"));
        return;
    }
    // A second request for the same address may have been quicker.
    const QString strLateFault = FindAddFault(nIP);
    if (!strLateFault.isEmpty()) {
        processors.Refuse(SenderPrcBasic, strCommand, strLateFault);
        return;
    }
    Adopt(device, false);
}

void CDeviceCommands::AddSimulators(const SSimulatorRequest& request)
{
    const QString strCommand = QStringLiteral("Adding %1 simulators").arg(request.nCount);
    const int nPresent = processors.CopyTree(true).GetProcessorCount();
    if (!DeviceTypes::IsKnown(request.nType) || request.nOutput < 1 || request.nOutput > 3) {
        processors.Refuse(SenderPrcBasic, strCommand, QStringLiteral("there is no such type or output"));
        return;
    }
    if (request.nCount < 1 || request.nCount > processors.GetLimits().nSimulators - nPresent) {
        processors.Refuse(SenderPrcBasic, strCommand, QStringLiteral("at most two can exist"));
        return;
    }
    for (int n = 0; n < request.nCount; ++n) {
        const CNodeTree tree = processors.CopyTree(true);
        int nNumber = 1;
        while (!tree.FindByName(QStringLiteral("Simulator %1").arg(nNumber)).isNull()) {
            ++nNumber;
        }
        Adopt(BuildSimulator(request.nType, nNumber), true);
    }
}

void CDeviceCommands::Delete(const QUuid& id)
{
    const CNodeTree trees[]{ processors.CopyTree(false), processors.CopyTree(true) };
    for (const CNodeTree& tree : trees) {
        const std::optional<SNodePlace> place = tree.FindProcessor(id);
        if (!place) {
            continue;
        }
        const QString strCommand = QStringLiteral("Deleting \"%1\"").arg(tree.GetProcessor(*place).strName);
        const QString strFault = processors.FindDeleteFault(id);
        if (!strFault.isEmpty()) {
            processors.Refuse(SenderPrcBasic, strCommand, strFault);
            return;
        }
        const CJobScope job(jobs, strCommand);
        AnnounceDeletion(id, 1);
        ReleaseAndRemove({ id }, [&] { processors.RemoveProcessor(id); });
        return;
    }
}

void CDeviceCommands::DeleteGroup(const QUuid& id, bool bWithProcessors)
{
    const auto remove = [&] {
        const QList<SProcessorNode> listGone = processors.RemoveGroup(id, bWithProcessors);
        for (const SProcessorNode& processor : listGone) {
            network.Forget(processor.idNode);
        }
    };
    const SProcessorGroupNode group = processors.CopyGroup(id);
    const int nMembers = bWithProcessors ? group.listProcessor.size() : 0;
    const QString strFault = bWithProcessors ? processors.FindDeleteFault(id) : QString();
    if (strFault.isEmpty()) {
        AnnounceDeletion(id, 1 + nMembers);
    }
    if (nMembers == 0 || !strFault.isEmpty()) {
        remove(); // nothing to wait for, or it is refused there
        return;
    }
    QList<QUuid> listId;
    for (const SProcessorNode& processor : group.listProcessor) {
        listId.append(processor.idNode);
    }
    const CJobScope job(jobs, QStringLiteral("Deleting \"%1\" with its processors").arg(group.strName));
    ReleaseAndRemove(listId, remove);
}

void CDeviceCommands::FollowList(const QList<QUuid>& listBefore)
{
    for (const QUuid& id : listBefore) {
        network.Forget(id);
    }
    const QList<SProcessorNode> listNow = processors.CopyTree(false).GetProcessors();
    for (const SProcessorNode& processor : listNow) {
        network.Adopt(processor);
    }
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

QString CDeviceCommands::FindAddFault(quint32 nIP) const
{
    if (nIP == nLocalAddress || GetReservedAddresses().contains(nIP)) {
        return QStringLiteral("the address is reserved");
    }
    return processors.FindAddFault(nIP);
}

// The network first: a report of the device may follow at once.
bool CDeviceCommands::Adopt(const SProcessorNode& device, bool bSimulator)
{
    network.Adopt(device);
    const bool bAdded = processors.AddProcessor(device, bSimulator);
    if (!bAdded && processors.GetNodeType(device.idNode) == 0) {
        network.Forget(device.idNode);
    }
    return bAdded;
}

// Gives back to the network what is still in the list afterwards: refused, or moved meanwhile.
void CDeviceCommands::ReleaseAndRemove(const QList<QUuid>& listId, const std::function<void()>& remove)
{
    network.Release(listId);
    remove();
    for (const bool bSimulator : { false, true }) {
        const CNodeTree tree = processors.CopyTree(bSimulator);
        for (const QUuid& id : listId) {
            if (const std::optional<SNodePlace> place = tree.FindProcessor(id)) {
                network.Adopt(tree.GetProcessor(*place));
            }
        }
    }
}
