#pragma once

#include "CorvidControl/list/EnOrigin.h"
#include "CorvidControl/list/SFault.h"
#include "interfaces/control/SSimulatorRequest.h"

#include <QList>
#include <QUuid>

#include <atomic>
#include <functional>

class CJobs;
class CProcessorList;
class IDeviceNetwork;
struct SListCommand;
struct SProcessorNode;

/// The commands that need devices. Scan, Add and Delete block as long as the device takes; no lock is
/// held meanwhile, and CJobs knows of them. What is refused changes nothing, writes one line into the log and is
/// followed by MessageCommandRefused. All operations may be called on any thread. Addresses are in host order.
class CDeviceCommands
{
public:
    /// All references must outlive it.
    CDeviceCommands(CProcessorList& processorsIn, CJobs& jobsIn, IDeviceNetwork& networkIn);

    /// Sets who is called when nodes of the Discovered list are about to be deleted in one step, with their number.
    /// Called on the thread that deletes, which may wait for it; without a lock. Once, before the first deletion.
    void SetDeletionListener(const std::function<void(int nNodes)>& listenerNew);

    /// Adds the devices that are found and not listed, up to the limit. Blocks. CJobs hears how many were asked.
    void Scan(EnOrigin origin = OriginUser);

    /// Adds the device at nIP. Blocks until it has answered or the time is over.
    void Add(quint32 nIP, EnOrigin origin = OriginUser);

    /// Never blocks. Refused as a whole for an unknown type or output, where more than two would exist, and while the
    /// list is locked.
    void AddSimulators(const SSimulatorRequest& request, EnOrigin origin = OriginUser);

    /// Deletes a processor of either pane; blocks until its device has let go. One that is gone is no fault. CJobs hears how
    /// many nodes the job that is under way has deleted so far.
    void Delete(const QUuid& id, EnOrigin origin = OriginUser);

    /// Blocks only with its processors, which let go at the same time. A group that is gone is no fault.
    void DeleteGroup(const QUuid& id, bool bWithProcessors, EnOrigin origin = OriginUser);

    /// The busy state begins or ends: what is deleted from now on is counted anew.
    void EndJob();

    static quint32 GetLocalAddress();             ///< of this machine; no processor may have it
    static QList<quint32> GetReservedAddresses(); ///< of the router and the time server

private:
    void AnnounceDeletion(const QUuid& id, int nNodes) const;
    SFault FindAddFault(quint32 nIP) const;
    void TryAdd(quint32 nIP, const SListCommand& command);
    bool Adopt(const SProcessorNode& device, EnOrigin origin);
    void AdoptSimulators(qint32 nType, int nCount, EnOrigin origin);
    void ReleaseAndRemove(const QList<QUuid>& listId, const std::function<void()>& remove);

    CProcessorList& processors;
    CJobs& jobs;
    IDeviceNetwork& network;
    std::function<void(int nNodes)> listenerDeletion;
    std::atomic<int> nDeleted{ 0 }; ///< by the job that is under way
};
