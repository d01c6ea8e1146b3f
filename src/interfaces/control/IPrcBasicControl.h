#pragma once

#include "interfaces/control/SLocalAddress.h"
#include "interfaces/control/SSimulatorRequest.h"

#include <QString>
#include <QUuid>

class CObserver;

/// Processors as devices: scanning, adding, naming. All operations may be called on any thread, at the
/// same time as all others.
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IPrcBasicControl
{
public:
    /// Subscribes pObserver, which stays owned by the caller. Messages may arrive on a thread of the
    /// library before Attach has returned.
    virtual void Attach(CObserver* pObserver) = 0;

    /// Unsubscribes pObserver. When it returns no Notify of pObserver is running and none will come.
    virtual void Detach(CObserver* pObserver) = 0;

    /// Scans for processors and blocks until the scan is done, seconds as a rule. Never called on the
    /// GUI thread.
    virtual void RefreshProcessors() = 0;

    /// Adds simulators to the Simulator pane. Returns at once; called on the GUI thread.
    virtual void AddSimulators(SSimulatorRequest request) = 0;

    /// Adds the processor at the IPv4 address nIP, host order, and blocks until it has answered or has
    /// failed to. Never called on the GUI thread.
    virtual void AddProcessor(quint32 nIP) = 0;

    /// Sets the name of a processor. The library may refuse; the old name then stays.
    virtual void RenameProcessor(QUuid idProcessor, QString strName) = 0;

    /// Display name of a processor type. The numbers are the library's; the panel offers 12 when simulators are added.
    virtual QString GetTypeName(qint32 nType) = 0;

    /// The address of this machine; a processor may not take it. It is no hint where to look for a free one.
    virtual SLocalAddress GetLocalAddress() = 0;

    /// True while the list may not be changed: the panel then offers no delete, import or refresh.
    virtual bool IsListLocked() = 0;

    /// True while no refresh may be started.
    virtual bool IsRefreshBlocked() = 0;

protected:
    ~IPrcBasicControl() = default;
};
