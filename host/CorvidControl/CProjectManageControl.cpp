#include "CorvidControl/CProjectManageControl.h"

#include "CorvidControl/CHostState.h"
#include "CorvidControl/CMessageDispatcher.h"
#include "interfaces/control/SProjectInfo.h"

CProjectManageControl::CProjectManageControl(CMessageDispatcher& dispatcherNew, const CHostState& hostNew)
    : dispatcher(dispatcherNew), host(hostNew)
{ }

void CProjectManageControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderProjectManage, pObserver);
}

void CProjectManageControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderProjectManage, pObserver);
}

void CProjectManageControl::GetProjectInfo(SProjectInfo& info)
{
    static const QUuid idSpace(QStringLiteral("{0f5d7c1e-8a44-4c0b-bb0e-61b1d2c9a7f4}"));
    const QString strProject = host.GetProject();
    info.strName = strProject.toStdString();
    info.idProject = strProject.isEmpty() ? QUuid() : QUuid::createUuidV5(idSpace, strProject);
}
