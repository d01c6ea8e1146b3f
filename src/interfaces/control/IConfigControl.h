#pragma once

#include <QList>
#include <QString>

/// Settings of the host's installation. Has no observers. All operations may be called on any thread.
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IConfigControl
{
public:
    /// Appends to listIP the IPv4 addresses, host order, that a new processor may not take. [C-config-1 recommended]
    virtual void GetReservedIPs(QList<uint>& listIP) = 0;

    /// The file to which the panel saves the list when it ends: an absolute path; empty for none. [C-config-2 required]
    virtual QString GetListFilePath() = 0;

protected:
    ~IConfigControl() = default;
};
