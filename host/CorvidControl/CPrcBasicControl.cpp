#include "CorvidControl/CPrcBasicControl.h"

#include "CorvidControl/CDeviceCommands.h"
#include "CorvidControl/CDeviceTypes.h"
#include "CorvidControl/CHostState.h"
#include "CorvidControl/CMessageDispatcher.h"
#include "CorvidControl/CSite.h"

CPrcBasicControl::CPrcBasicControl(CMessageDispatcher& dispatcherNew, CSite& siteNew, CDeviceCommands& commandsNew)
    : dispatcher(dispatcherNew), site(siteNew), commands(commandsNew)
{ }

void CPrcBasicControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderPrcBasic, pObserver);
}

void CPrcBasicControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderPrcBasic, pObserver);
}

void CPrcBasicControl::RefreshProcessors()
{
    commands.Scan();
}

void CPrcBasicControl::AddSimulators(SSimulatorRequest request)
{
    commands.AddSimulators(request);
}

void CPrcBasicControl::AddProcessor(quint32 nIP)
{
    commands.Add(nIP);
}

void CPrcBasicControl::RenameProcessor(QUuid idProcessor, QString strName)
{
    site.RenameNode(idProcessor, strName);
}

QString CPrcBasicControl::GetTypeName(qint32 nType)
{
    return CDeviceTypes::GetName(nType);
}

SLocalAddress CPrcBasicControl::GetLocalAddress()
{
    return { CDeviceCommands::GetLocalAddress() };
}

bool CPrcBasicControl::IsListLocked()
{
    return site.GetHost().IsLocked();
}

bool CPrcBasicControl::IsRefreshBlocked()
{
    return site.GetHost().IsRefreshBlocked();
}
