#include "data/StoreReader.h"

#include "data/SStoreReading.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"

#include <QDateTime>

namespace {

SProjectInfo MakeProjectInfo()
{
    static const QUuid idNone;
    const QDateTime now = QDateTime::currentDateTime();

    SProjectInfo info;
    info.idProject = idNone;
    info.nYear = now.date().year();
    info.nMonth = now.date().month();
    info.nDay = now.date().day();
    info.nHour = now.time().hour();
    info.nMinute = now.time().minute();
    info.nSecond = now.time().second();
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
