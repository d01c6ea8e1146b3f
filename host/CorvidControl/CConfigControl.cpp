#include "CorvidControl/CConfigControl.h"

#include "CorvidControl/CDeviceCommands.h"

void CConfigControl::GetReservedIPs(QList<uint>& listIP)
{
    listIP += CDeviceCommands::GetReservedAddresses();
}

QString CConfigControl::GetListFilePath()
{
    return strListFile;
}
