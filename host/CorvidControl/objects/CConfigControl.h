#pragma once

#include "CorvidControl/faults/CCallGate.h"
#include "interfaces/control/IConfigControl.h"

/// The object behind g_pConfigControl, the only one of the eight without observers. Its answers stay the
/// same while the library runs. Any thread.
class CConfigControl final : public IConfigControl
{
public:
    /// strListFileIn: absolute. faults must outlive it.
    CConfigControl(const QString& strListFileIn, CCallFaults& faults) : strListFile(strListFileIn), gate(faults, "ConfigControl")
    { }

    /// Appends CDeviceCommands::GetReservedAddresses; this machine's own address is not among them.
    void GetReservedIPs(QList<uint>& listIP) override;

    /// The list's own place, with the links in it as they were named.
    QString GetListFilePath() override;

private:
    const QString strListFile;
    const CCallGate gate;
};
