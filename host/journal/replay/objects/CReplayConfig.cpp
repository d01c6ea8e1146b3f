#include "journal/replay/objects/CReplayConfig.h"

CReplayConfig::CReplayConfig(IReplayAnswers& answers) : caller(answers, "ConfigControl") { }

void CReplayConfig::GetReservedIPs(QList<uint>& listIP)
{
    const std::vector<uint> vecIP = ReplayValue::ReadAddresses(caller.Call("GetReservedIPs").value);
    listIP = QList<uint>(vecIP.begin(), vecIP.end());
}

QString CReplayConfig::GetListFilePath()
{
    return caller.Call("GetListFilePath").value.toString();
}
