#pragma once

#include "interfaces/control/SLocalAddress.h"
#include "interfaces/control/SSimulatorRequest.h"

#include <QString>
#include <QUuid>

class CObserver;

/// Processors as devices: scanning, adding, naming. All operations may be called on any thread, at the
/// same time as all others. [C-library-4 required]
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IPrcBasicControl
{
public:
    /// Subscribes pObserver, which stays owned by the caller. Messages may arrive on a thread of the library before Attach has
    /// returned. A message that makes it read follows, or a new panel stays empty. [C-basic-1 recommended]
    virtual void Attach(CObserver* pObserver) = 0;

    /// Unsubscribes pObserver. When it returns no Notify of pObserver is running and none will come. [C-basic-2 required]
    virtual void Detach(CObserver* pObserver) = 0;

    /// Scans for processors and blocks until the scan is done, seconds as a rule: what it found is listed then. Never called on
    /// the GUI thread. [C-basic-3 required]
    virtual void RefreshProcessors() = 0;

    /// Adds simulators to the Simulator pane. Returns at once; called on the GUI thread. [C-basic-4 required]
    virtual void AddSimulators(SSimulatorRequest request) = 0;

    /// Adds the processor at the IPv4 address nIP, host order, and no other, and blocks until it has answered or has failed to.
    /// Never called on the GUI thread. [C-basic-5 required]
    virtual void AddProcessor(quint32 nIP) = 0;

    /// Sets the name of a processor. The library may refuse; the old name then stays. [C-basic-6 required]
    virtual void RenameProcessor(QUuid idProcessor, QString strName) = 0;

    /// Display name of a type; the numbers are the library's. The panel offers 12 for simulators. [C-basic-7 recommended]
    virtual QString GetTypeName(qint32 nType) = 0;

    /// The address of this machine, which no processor may take; no hint where a free one is. [C-basic-8 not testable]
    virtual SLocalAddress GetLocalAddress() = 0;

    /// True while the list may not be changed: the panel then offers no delete, import or refresh. [C-basic-9 not testable]
    virtual bool IsListLocked() = 0;

    /// True while no refresh may be started. [C-basic-10 not testable]
    virtual bool IsRefreshBlocked() = 0;

protected:
    ~IPrcBasicControl() = default;
};
