#include "CorvidControl/objects/CPrcBasicControl.h"

#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/DeviceTypes.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostState.h"

#include <QHostAddress>

CPrcBasicControl::CPrcBasicControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, CProcessorList& processorsIn,
                                   CDeviceCommands& commandsIn)
    : CObserved(dispatcherIn, faults, "PrcBasicControl"), processors(processorsIn), commands(commandsIn)
{ }

void CPrcBasicControl::RefreshProcessors()
{
    gate.Enter("RefreshProcessors");
    if (gate.IsRefused(CommandScan)) {
        Refuse(CommandScan, QStringLiteral("Scanning the network"), QString());
        return;
    }
    commands.Scan();
}

void CPrcBasicControl::AddSimulators(SSimulatorRequest request)
{
    gate.Enter("AddSimulators");
    if (gate.IsRefused(CommandAddSimulators)) {
        Refuse(CommandAddSimulators, QStringLiteral("Adding simulators"), QString());
        return;
    }
    commands.AddSimulators(request);
}

void CPrcBasicControl::AddProcessor(quint32 nIP)
{
    gate.Enter("AddProcessor");
    if (gate.IsRefused(CommandAddProcessor)) {
        Refuse(CommandAddProcessor, QStringLiteral("Adding a processor"), QHostAddress(nIP).toString());
        return;
    }
    commands.Add(nIP);
}

void CPrcBasicControl::RenameProcessor(QUuid idProcessor, QString strName)
{
    gate.Enter("RenameProcessor");
    if (gate.IsRefused(CommandRename)) {
        Refuse(CommandRename, QStringLiteral("Renaming a processor"), strName);
        return;
    }
    processors.RenameNode(idProcessor, strName);
}

QString CPrcBasicControl::GetTypeName(qint32 nType)
{
    gate.Enter("GetTypeName");
    return DeviceTypes::GetName(nType);
}

SLocalAddress CPrcBasicControl::GetLocalAddress()
{
    gate.Enter("GetLocalAddress");
    return { CDeviceCommands::GetLocalAddress() };
}

bool CPrcBasicControl::IsListLocked()
{
    gate.Enter("IsListLocked");
    return processors.GetHost().IsLocked();
}

bool CPrcBasicControl::IsRefreshBlocked()
{
    gate.Enter("IsRefreshBlocked");
    return processors.GetHost().IsRefreshBlocked();
}

void CPrcBasicControl::Refuse(EnListCommand command, const QString& strText, const QString& strName)
{
    processors.Refuse(SenderPrcBasic, { command, strText, strName }, CCallGate::GetRefusal());
}
