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
    /// Appends to listIP the IPv4 addresses, host order, that a new processor may not take.
    virtual void GetReservedIPs(QList<uint>& listIP) = 0;

    /// Path of the file to which the panel saves the list when it ends. An absolute path.
    virtual QString GetListFilePath() = 0;

protected:
    ~IConfigControl() = default;
};
