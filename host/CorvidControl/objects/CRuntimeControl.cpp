#include "CorvidControl/objects/CRuntimeControl.h"

#include "CorvidControl/list/CProcessorList.h"
#include "controlhost/CJobs.h"

CRuntimeControl::CRuntimeControl(CMessageDispatcher& dispatcherIn, CProcessorList& processorsIn, CJobs& jobsIn)
    : CObserved(dispatcherIn), processors(processorsIn), jobs(jobsIn)
{ }

void CRuntimeControl::PostMessage(qint32 nMessage)
{
    dispatcher.Post(SenderRuntime, nMessage);
}

bool CRuntimeControl::IsSimulatorPane()
{
    return processors.IsSimulatorPane();
}

void CRuntimeControl::SetSimulatorPane(bool bSimulator)
{
    processors.SetSimulatorPane(bSimulator);
}

bool CRuntimeControl::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    return processors.SetSelection(vecId);
}

std::vector<QUuid> CRuntimeControl::GetSelectedNodes(bool bSimulator)
{
    return processors.GetSelection(bSimulator);
}

std::vector<QUuid> CRuntimeControl::GetSelectedProcessors()
{
    return processors.GetSelectedProcessors();
}

bool CRuntimeControl::IsDeleteBlocked(QUuid idNode)
{
    return processors.IsInUse(idNode);
}

bool CRuntimeControl::IsNodeInUse(QUuid idNode)
{
    return processors.IsInUse(idNode);
}

void CRuntimeControl::SetBusy(bool bBusy)
{
    jobs.SetBusy(bBusy);
}
