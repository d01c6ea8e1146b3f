#include "CorvidControl/objects/CRuntimeControl.h"

#include "CorvidControl/list/CProcessorList.h"
#include "controlhost/CJobs.h"

CRuntimeControl::CRuntimeControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, CProcessorList& processorsIn,
                                 CJobs& jobsIn)
    : CObserved(dispatcherIn, faults, "RuntimeControl"), processors(processorsIn), jobs(jobsIn)
{ }

void CRuntimeControl::PostMessage(qint32 nMessage)
{
    gate.Enter("PostMessage");
    dispatcher.Post(SenderRuntime, nMessage);
}

bool CRuntimeControl::IsSimulatorPane()
{
    gate.Enter("IsSimulatorPane");
    return processors.IsSimulatorPane();
}

void CRuntimeControl::SetSimulatorPane(bool bSimulator)
{
    gate.Enter("SetSimulatorPane");
    processors.SetSimulatorPane(bSimulator);
}

bool CRuntimeControl::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    gate.Enter("SetSelectedNodes");
    return !gate.IsSelectionRefused() && processors.SetSelection(vecId);
}

std::vector<QUuid> CRuntimeControl::GetSelectedNodes(bool bSimulator)
{
    gate.Enter("GetSelectedNodes");
    return processors.GetSelection(bSimulator);
}

std::vector<QUuid> CRuntimeControl::GetSelectedProcessors()
{
    gate.Enter("GetSelectedProcessors");
    return processors.GetSelectedProcessors();
}

bool CRuntimeControl::IsDeleteBlocked(QUuid idNode)
{
    gate.Enter("IsDeleteBlocked");
    return processors.IsInUse(idNode);
}

bool CRuntimeControl::IsNodeInUse(QUuid idNode)
{
    gate.Enter("IsNodeInUse");
    return processors.IsInUse(idNode);
}

void CRuntimeControl::SetBusy(bool bBusy)
{
    gate.Enter("SetBusy");
    jobs.SetBusy(bBusy);
}
