#include "journal/replay/objects/CReplayRuntime.h"

CReplayRuntime::CReplayRuntime(IReplayAnswers& answers) : caller(answers, "RuntimeControl") { }

void CReplayRuntime::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayRuntime::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}

void CReplayRuntime::PostMessage(qint32 nMessage)
{
    caller.Call("PostMessage", nMessage);
}

bool CReplayRuntime::IsSimulatorPane()
{
    return caller.Call("IsSimulatorPane").value.toBool();
}

void CReplayRuntime::SetSimulatorPane(bool bSimulator)
{
    caller.Call("SetSimulatorPane", bSimulator);
}

bool CReplayRuntime::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    return caller.Call("SetSelectedNodes", vecId).value.toBool();
}

std::vector<QUuid> CReplayRuntime::GetSelectedNodes(bool bSimulator)
{
    return ReplayValue::ReadIds(caller.Call("GetSelectedNodes", bSimulator).value);
}

std::vector<QUuid> CReplayRuntime::GetSelectedProcessors()
{
    return ReplayValue::ReadIds(caller.Call("GetSelectedProcessors").value);
}

bool CReplayRuntime::IsDeleteBlocked(QUuid idNode)
{
    return caller.Call("IsDeleteBlocked", idNode).value.toBool();
}

bool CReplayRuntime::IsNodeInUse(QUuid idNode)
{
    return caller.Call("IsNodeInUse", idNode).value.toBool();
}

void CReplayRuntime::SetBusy(bool bBusy)
{
    caller.Call("SetBusy", bBusy);
}
