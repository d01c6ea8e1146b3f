#include "CorvidControl/objects/CConfigControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"

void CConfigControl::GetReservedIPs(QList<uint>& listIP)
{
    listIP += CDeviceCommands::GetReservedAddresses();
}

QString CConfigControl::GetListFilePath()
{
    return strListFile;
}
