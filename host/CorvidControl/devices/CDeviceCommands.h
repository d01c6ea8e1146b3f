#pragma once

#include "interfaces/control/SSimulatorRequest.h"

#include <QList>
#include <QUuid>

#include <functional>

class CJobs;
class CProcessorList;
class IDeviceNetwork;
struct SProcessorNode;

/// The commands that need devices. Scan, Add and Delete block as long as the device takes; no lock is
/// held meanwhile. All operations may be called on any thread.
class CDeviceCommands
{
public:
    CDeviceCommands(CProcessorList& processorsIn, CJobs& jobsIn, IDeviceNetwork& networkIn);

    /// Who hears that nodes of the Discovered list are about to be deleted in one step, and how many. On the
    /// thread that deletes, which may wait for it; without a lock. Set it once, before anything else.
    void SetDeletionListener(const std::function<void(int nNodes)>& listenerNew);

    void Scan();
    void Add(quint32 nIP);
    void AddSimulators(const SSimulatorRequest& request);
    void Delete(const QUuid& id);
    void DeleteGroup(const QUuid& id, bool bWithProcessors); ///< blocks only with its processors

    /// Makes the network know the devices of the Discovered list, and no others of the list before.
    void FollowList(const QList<QUuid>& listBefore);

    static quint32 GetLocalAddress();
    static QList<quint32> GetReservedAddresses();

private:
    void TellDeletion(const QUuid& id, int nNodes) const;
    QString FindAddFault(quint32 nIP) const;
    bool Adopt(const SProcessorNode& device, bool bSimulator);
    void ReleaseAndRemove(const QList<QUuid>& listId, const std::function<void()>& remove);

    CProcessorList& processors;
    CJobs& jobs;
    IDeviceNetwork& network;
    std::function<void(int nNodes)> listenerDeletion;
};
