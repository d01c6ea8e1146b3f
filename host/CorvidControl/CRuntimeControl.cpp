#include "CorvidControl/CRuntimeControl.h"

#include "CorvidControl/CJobs.h"
#include "CorvidControl/CMessageDispatcher.h"
#include "CorvidControl/CSite.h"

CRuntimeControl::CRuntimeControl(CMessageDispatcher& dispatcherNew, CSite& siteNew, CJobs& jobsNew)
    : dispatcher(dispatcherNew), site(siteNew), jobs(jobsNew)
{ }

void CRuntimeControl::Attach(CObserver* pObserver)
{
    dispatcher.Attach(SenderRuntime, pObserver);
}

void CRuntimeControl::Detach(CObserver* pObserver)
{
    dispatcher.Detach(SenderRuntime, pObserver);
}

void CRuntimeControl::PostMessage(qint32 nMessage)
{
    dispatcher.Post(SenderRuntime, nMessage);
}

bool CRuntimeControl::IsSimulatorPane()
{
    return site.IsSimulatorPane();
}

void CRuntimeControl::SetSimulatorPane(bool bSimulator)
{
    site.SetSimulatorPane(bSimulator);
}

bool CRuntimeControl::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    return site.SetSelection(vecId);
}

std::vector<QUuid> CRuntimeControl::GetSelectedNodes(bool bSimulator)
{
    return site.GetSelection(bSimulator);
}

std::vector<QUuid> CRuntimeControl::GetSelectedProcessors()
{
    return site.GetSelectedProcessors();
}

bool CRuntimeControl::IsDeleteBlocked(QUuid idNode)
{
    return site.IsInUse(idNode);
}

bool CRuntimeControl::IsNodeInUse(QUuid idNode)
{
    return site.IsInUse(idNode);
}

void CRuntimeControl::SetBusy(bool bBusy)
{
    jobs.SetBusy(bBusy);
}
