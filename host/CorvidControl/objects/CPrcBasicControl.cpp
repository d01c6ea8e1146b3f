#include "CorvidControl/objects/CPrcBasicControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/DeviceTypes.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"

CPrcBasicControl::CPrcBasicControl(CMessageDispatcher& dispatcherIn, CProcessorList& processorsIn, CDeviceCommands& commandsIn)
    : CObserved(dispatcherIn), processors(processorsIn), commands(commandsIn)
{ }

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
    processors.RenameNode(idProcessor, strName);
}

QString CPrcBasicControl::GetTypeName(qint32 nType)
{
    return DeviceTypes::GetName(nType);
}

SLocalAddress CPrcBasicControl::GetLocalAddress()
{
    return { CDeviceCommands::GetLocalAddress() };
}

bool CPrcBasicControl::IsListLocked()
{
    return processors.GetHost().IsLocked();
}

bool CPrcBasicControl::IsRefreshBlocked()
{
    return processors.GetHost().IsRefreshBlocked();
}
