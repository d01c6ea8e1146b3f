#include "journal/CRuntimeJournal.h"

#include "controlhost/CJobs.h"

CRuntimeJournal::CRuntimeJournal(IRuntimeControl& innerIn, CCallLog& journal, CJobs& jobsIn)
    : inner(innerIn), writer(journal, "RuntimeControl"), jobs(jobsIn)
{ }

void CRuntimeJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CRuntimeJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}

void CRuntimeJournal::PostMessage(qint32 nMessage)
{
    writer.Command("PostMessage", nMessage);
    inner.PostMessage(nMessage);
}

bool CRuntimeJournal::IsSimulatorPane()
{
    const bool result = inner.IsSimulatorPane();
    writer.Read("IsSimulatorPane", result);
    return result;
}

void CRuntimeJournal::SetSimulatorPane(bool bSimulator)
{
    writer.Command("SetSimulatorPane", bSimulator);
    inner.SetSimulatorPane(bSimulator);
}

bool CRuntimeJournal::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    writer.Command("SetSelectedNodes", vecId);
    const bool result = inner.SetSelectedNodes(vecId);
    writer.Returned("SetSelectedNodes", result);
    return result;
}

std::vector<QUuid> CRuntimeJournal::GetSelectedNodes(bool bSimulator)
{
    const std::vector<QUuid> result = inner.GetSelectedNodes(bSimulator);
    writer.Read("GetSelectedNodes", result, bSimulator);
    return result;
}

std::vector<QUuid> CRuntimeJournal::GetSelectedProcessors()
{
    const std::vector<QUuid> result = inner.GetSelectedProcessors();
    writer.Read("GetSelectedProcessors", result);
    return result;
}

bool CRuntimeJournal::IsDeleteBlocked(QUuid idNode)
{
    const bool result = inner.IsDeleteBlocked(idNode);
    writer.Read("IsDeleteBlocked", result, idNode);
    return result;
}

bool CRuntimeJournal::IsNodeInUse(QUuid idNode)
{
    const bool result = inner.IsNodeInUse(idNode);
    writer.Read("IsNodeInUse", result, idNode);
    return result;
}

void CRuntimeJournal::SetBusy(bool bBusy)
{
    writer.Command("SetBusy", bBusy);
    inner.SetBusy(bBusy);
    jobs.SetBusy(bBusy); // behind the library: who waits for the end may end the library then
}
