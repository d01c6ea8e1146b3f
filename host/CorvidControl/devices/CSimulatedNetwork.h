#pragma once

#include "CorvidControl/devices/IDeviceNetwork.h"

#include <QHash>
#include <QSet>

#include <chrono>
#include <condition_variable>
#include <mutex>

/// Devices that exist in this process only. What happens to them is told by the operations below those
/// of the interface. Something answers at every private address (10.*, 172.16.* to 172.31.*, 192.168.*)
/// that was not silenced, and nothing at the others.
class CSimulatedNetwork final : public IDeviceNetwork
{
public:
    struct SDelays
    {
        std::chrono::milliseconds timeScan;
        std::chrono::milliseconds timeAnswer;
        std::chrono::milliseconds timeTimeout;
        std::chrono::milliseconds timeRelease; ///< for a device that is online; others have nothing to let go
    };

    explicit CSimulatedNetwork(const SDelays& delaysIn) : delays(delaysIn) { }

    void SetListener(const Listener& listenerNew) override;
    void Adopt(const SProcessorNode& device) override;
    void Forget(const QUuid& id) override;
    void Release(const QList<QUuid>& listId) override;
    QList<SProcessorNode> Scan() override;
    bool Ask(quint32 nIP, SProcessorNode& device) override;
    void Stop() override;

    // An id that is unknown changes nothing.
    void SetOnline(const QUuid& id, bool bOnline);
    void SetRole(const QUuid& id, qint32 nFailover);
    void SetProject(const QUuid& id, const QString& strProject);

    /// A device stands at nIP that no list knows yet; a scan finds it.
    void Appear(quint32 nIP, const QString& strName);

    /// Nothing answers at nIP any more.
    void Silence(quint32 nIP);

    /// The device that is at an address when nobody has said anything else: the same each time.
    static SProcessorNode BuildDevice(quint32 nIP, const QString& strName);

private:
    void Change(const QUuid& id, const std::function<void(SProcessorNode&)>& change);
    void Wait(std::unique_lock<std::mutex>& lock, std::chrono::milliseconds time);

    const SDelays delays;
    Listener listener;

    mutable std::mutex mutex; ///< guards all below
    std::condition_variable condStop;
    QHash<QUuid, SProcessorNode> hashAdopted;
    QList<SProcessorNode> listUnlisted;
    QSet<quint32> setSilent;
    bool bStop = false;
};
