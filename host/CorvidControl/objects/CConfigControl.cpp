#include "CorvidControl/objects/CConfigControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"

void CConfigControl::GetReservedIPs(QList<uint>& listIP)
{
    gate.Enter("GetReservedIPs");
    listIP += CDeviceCommands::GetReservedAddresses();
}

QString CConfigControl::GetListFilePath()
{
    gate.Enter("GetListFilePath");
    return strListFile;
}
