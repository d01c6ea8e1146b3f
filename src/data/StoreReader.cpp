#include "data/StoreReader.h"

#include "data/SStoreReading.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"

#include <ctime>

namespace {

// In the zone that the process has had since its first local time: to look for another one, as QDateTime does three times,
// takes longer than all the rest of a reading that finds nothing changed.
std::tm GetLocalTime()
{
    static const bool bZoneSet = (tzset(), true);
    Q_UNUSED(bZoneSet)
    const std::time_t nTime = std::time(nullptr);
    std::tm time{};
    localtime_r(&nTime, &time);
    return time;
}

SProjectInfo MakeProjectInfo()
{
    static const QUuid idNone;
    const std::tm time = GetLocalTime();

    SProjectInfo info;
    info.idProject = idNone;
    info.nYear = 1900 + time.tm_year;
    info.nMonth = 1 + time.tm_mon;
    info.nDay = time.tm_mday;
    info.nHour = time.tm_hour;
    info.nMinute = time.tm_min;
    info.nSecond = time.tm_sec;
    return info;
}

} // namespace

SStoreReading StoreReader::Take()
{
    SStoreReading reading;
    g_pPrcListControl->GetDiscoveredTree(reading.nodeDiscovered);
    g_pPrcListControl->GetSimulatorTree(reading.nodeSimulator);
    reading.vecSelectedDiscovered = g_pRuntimeControl->GetSelectedNodes(false);
    reading.vecSelectedSimulator = g_pRuntimeControl->GetSelectedNodes(true);
    reading.bListLocked = g_pPrcBasicControl->IsListLocked();
    const bool bRefreshBlocked = g_pPrcBasicControl->IsRefreshBlocked();
    reading.bRefreshEnabled = !reading.bListLocked && !bRefreshBlocked;

    SProjectInfo info = MakeProjectInfo();
    g_pProjectManageControl->GetProjectInfo(info);
    reading.strProjectName = QString::fromStdString(info.strName);

    reading.bChiefMode = g_pPreferenceControl->IsChiefMode();
    return reading;
}
