#include "CorvidControl/objects/CProjectManageControl.h"

#include "CorvidControl/objects/CHostState.h"
#include "interfaces/control/SProjectInfo.h"

CProjectManageControl::CProjectManageControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, const CHostState& hostIn)
    : CObserved(dispatcherIn, faults, "ProjectManageControl"), host(hostIn)
{ }

void CProjectManageControl::GetProjectInfo(SProjectInfo& info)
{
    gate.Enter("GetProjectInfo");
    static const QUuid idSpace(QStringLiteral("{0f5d7c1e-8a44-4c0b-bb0e-61b1d2c9a7f4}"));
    const QString strProject = host.GetProject();
    info.strName = strProject.toStdString();
    info.idProject = strProject.isEmpty() ? QUuid() : QUuid::createUuidV5(idSpace, strProject);
}
