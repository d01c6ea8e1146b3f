#include "journal/replay/objects/CReplayPrcBasic.h"

CReplayPrcBasic::CReplayPrcBasic(IReplayAnswers& answers) : caller(answers, "PrcBasicControl") { }

void CReplayPrcBasic::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayPrcBasic::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}

void CReplayPrcBasic::RefreshProcessors()
{
    caller.Call("RefreshProcessors");
}

void CReplayPrcBasic::AddSimulators(SSimulatorRequest request)
{
    caller.Call("AddSimulators", request);
}

void CReplayPrcBasic::AddProcessor(quint32 nIP)
{
    caller.Call("AddProcessor", SAddress(nIP));
}

void CReplayPrcBasic::RenameProcessor(QUuid idProcessor, QString strName)
{
    caller.Call("RenameProcessor", idProcessor, strName);
}

QString CReplayPrcBasic::GetTypeName(qint32 nType)
{
    return caller.Call("GetTypeName", nType).value.toString();
}

SLocalAddress CReplayPrcBasic::GetLocalAddress()
{
    SLocalAddress address;
    address.nIP = ReplayValue::ReadAddress(caller.Call("GetLocalAddress").value);
    return address;
}

bool CReplayPrcBasic::IsListLocked()
{
    return caller.Call("IsListLocked").value.toBool();
}

bool CReplayPrcBasic::IsRefreshBlocked()
{
    return caller.Call("IsRefreshBlocked").value.toBool();
}
