#pragma once

#include "nodes/SProcessorNode.h"

#include <functional>
#include <optional>

/// All that the library needs of the network in which the processors stand. A device is described by the
/// fields of a processor's record that are its own: id, type, address, ports, online state, role and
/// project. All operations may be called on any thread, at the same time as all others; those that
/// block do so for as long as the device takes and end early after Stop.
class IDeviceNetwork
{
public:
    using Listener = std::function<void(const SProcessorNode& device)>;
    using Progress = std::function<void(int nDone, int nAll)>;

    virtual ~IDeviceNetwork() = default;

    /// Sets who is called for each change of a device that has been adopted, on the thread of the change, without
    /// a lock. Once, before the first device is adopted.
    virtual void SetListener(const Listener& listenerNew) = 0;

    /// The list knows this device from now on; a second time gives it the state of device. Returns at once.
    virtual void Adopt(const SProcessorNode& device) = 0;

    /// As Adopt, of what a list has recorded: a device that is known keeps its online state, role and project. Returns at
    /// once; called with the list's lock held.
    virtual void Follow(const SProcessorNode& recorded) = 0;

    /// The list knows the device no longer. Returns at once; an id that is unknown is no fault.
    virtual void Forget(const QUuid& id) = 0;

    /// As Forget for each, but blocks until all the devices have let go, which they do at the same time.
    virtual void Release(const QList<QUuid>& listId) = 0;

    /// What is heard now of a device that the list does not know; none when nothing is. Returns at once.
    virtual std::optional<SProcessorNode> Hear(const QUuid& id) const = 0;

    /// Blocks. Returns all devices that a scan finds, adopted or not, with their state. progress is called on this thread,
    /// without a lock, with how many were asked, of those that are there.
    virtual QList<SProcessorNode> Scan(const Progress& progress) = 0;

    /// Blocks. Returns true with the device at nIP (host order), or false when none has answered in time.
    virtual bool Ask(quint32 nIP, SProcessorNode& device) = 0;

    /// Ends the calls that block; later ones no longer block.
    virtual void Stop() = 0;
};
