#pragma once

#include "CorvidControl/devices/IDeviceNetwork.h"

#include <QHash>
#include <QSet>

#include <chrono>
#include <condition_variable>
#include <mutex>

/// Devices that exist in this process only. What happens to them is said by the operations below those
/// of the interface, on any thread, without blocking. Something answers at every private address (10.*, 172.16.* to 172.31.*,
/// 192.168.*) that was not silenced, and nothing at the others.
class CSimulatedNetwork final : public IDeviceNetwork
{
public:
    /// How long the calls block.
    struct SDelays
    {
        std::chrono::milliseconds timeScan;
        std::chrono::milliseconds timeAnswer;
        std::chrono::milliseconds timeTimeout;
        std::chrono::milliseconds timeRelease; ///< for a device that is online; others have nothing to let go
    };

    /// No device is listed at first.
    explicit CSimulatedNetwork(const SDelays& delaysIn) : delays(delaysIn) { }

    void SetListener(const Listener& listenerNew) override;             ///< called by SetOnline and its siblings, on their thread
    void Adopt(const SProcessorNode& device) override;                  ///< it is no longer one that a scan finds unlisted
    void Follow(const SProcessorNode& recorded) override;               ///< as Adopt, but what is known of its state stays
    void Forget(const QUuid& id) override;                              ///< its state is forgotten too
    void Release(const QList<QUuid>& listId) override;                  ///< blocks for timeRelease when one of them is online
    std::optional<SProcessorNode> Hear(const QUuid& id) const override; ///< those that a scan finds unlisted
    QList<SProcessorNode> Scan(const Progress& progress) override;      ///< blocks for timeScan; the unlisted ones first
    bool Ask(quint32 nIP, SProcessorNode& device) override; ///< blocks for timeAnswer, or timeTimeout where nothing answers
    void Stop() override;                                   ///< an Ask that it ends returns false

    /// The device answers or does not. Here as below: the listener hears of it before the call returns, and a
    /// device that no list knows changes nothing.
    void SetOnline(const QUuid& id, bool bOnline);

    /// 0 none, 1 Primary, 2 Backup; not checked.
    void SetRole(const QUuid& id, qint32 nFailover);

    /// Empty for none.
    void SetProject(const QUuid& id, const QString& strProject);

    /// A device stands at nIP that no list knows yet; a scan finds it.
    void Appear(quint32 nIP, const QString& strName);

    /// Nothing answers at nIP any more, until something appears there. A device that is listed stays as it is.
    void Silence(quint32 nIP);

    /// The device that is at an address when nobody has said anything else: the same, with the same id, each time.
    /// An empty strName gives it a name of its address.
    static SProcessorNode BuildDevice(quint32 nIP, const QString& strName);

private:
    void Insert(const std::lock_guard<std::mutex>& lock, const SProcessorNode& device);
    void Change(const QUuid& id, const std::function<void(SProcessorNode&)>& change);
    void Wait(std::unique_lock<std::mutex>& lock, std::chrono::steady_clock::time_point timeEnd);
    QList<SProcessorNode> GetAll(const std::unique_lock<std::mutex>& lock) const;

    const SDelays delays;
    Listener listener;

    mutable std::mutex mutex; ///< guards all below
    std::condition_variable condStop;
    QHash<QUuid, SProcessorNode> hashAdopted;
    QList<SProcessorNode> listUnlisted;
    QSet<quint32> setSilent;
    bool bStop = false;
};
