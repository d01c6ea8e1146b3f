#include "journal/CRuntimeJournal.h"

#include "controlhost/CJobs.h"
#include "journal/recording/CRecordedCall.h"

namespace {

const QUuid idNobody(QStringLiteral("{7b1c5f0e-52d4-4f2b-9a55-0d7a3c1e9b64}"));

} // namespace

CRuntimeJournal::CRuntimeJournal(IRuntimeControl& innerIn, CCallLog& journal, CJobs& jobsIn)
    : inner(innerIn), writer(journal, "RuntimeControl"), jobs(jobsIn)
{ }

void CRuntimeJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CRuntimeJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}

void CRuntimeJournal::PostMessage(qint32 nMessage)
{
    writer.Command("PostMessage", nMessage);
    CRecordedCall call(writer, RecordCommand, "PostMessage", nMessage);
    call.Carry([&] { inner.PostMessage(nMessage); });
}

bool CRuntimeJournal::IsSimulatorPane()
{
    CRecordedCall call(writer, RecordRead, "IsSimulatorPane");
    const bool result = call.Ask(false, [&] { return inner.IsSimulatorPane(); });
    call.SetResult(result);
    writer.Read("IsSimulatorPane", result);
    return result;
}

void CRuntimeJournal::SetSimulatorPane(bool bSimulator)
{
    writer.Command("SetSimulatorPane", bSimulator);
    CRecordedCall call(writer, RecordCommand, "SetSimulatorPane", bSimulator);
    call.Carry([&] { inner.SetSimulatorPane(bSimulator); });
}

bool CRuntimeJournal::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    writer.Command("SetSelectedNodes", vecId);
    CRecordedCall call(writer, RecordCommand, "SetSelectedNodes", vecId);
    const bool result = call.Ask(false, [&] { return inner.SetSelectedNodes(vecId); });
    call.SetResult(result);
    writer.Returned("SetSelectedNodes", result);
    return result;
}

// An id that no node has takes the place of what is not known: the panel then selects nothing, and sends nothing. Of an empty
// selection, or of the root, it would make one of its own for the library.
std::vector<QUuid> CRuntimeJournal::GetSelectedNodes(bool bSimulator)
{
    CRecordedCall call(writer, RecordRead, "GetSelectedNodes", bSimulator);
    const std::vector<QUuid> result
        = call.Ask(std::vector<QUuid>{ idNobody }, [&] { return inner.GetSelectedNodes(bSimulator); });
    call.SetResult(result);
    writer.Read("GetSelectedNodes", result, bSimulator);
    return result;
}

std::vector<QUuid> CRuntimeJournal::GetSelectedProcessors()
{
    CRecordedCall call(writer, RecordRead, "GetSelectedProcessors");
    const std::vector<QUuid> result = call.Ask(std::vector<QUuid>(), [&] { return inner.GetSelectedProcessors(); });
    call.SetResult(result);
    writer.Read("GetSelectedProcessors", result);
    return result;
}

bool CRuntimeJournal::IsDeleteBlocked(QUuid idNode)
{
    CRecordedCall call(writer, RecordRead, "IsDeleteBlocked", idNode);
    const bool result = call.Ask(false, [&] { return inner.IsDeleteBlocked(idNode); });
    call.SetResult(result);
    writer.Read("IsDeleteBlocked", result, idNode);
    return result;
}

bool CRuntimeJournal::IsNodeInUse(QUuid idNode)
{
    CRecordedCall call(writer, RecordRead, "IsNodeInUse", idNode);
    const bool result = call.Ask(false, [&] { return inner.IsNodeInUse(idNode); });
    call.SetResult(result);
    writer.Read("IsNodeInUse", result, idNode);
    return result;
}

void CRuntimeJournal::SetBusy(bool bBusy)
{
    writer.Command("SetBusy", bBusy);
    {
        CRecordedCall call(writer, RecordCommand, "SetBusy", bBusy);
        call.Carry([&] { inner.SetBusy(bBusy); });
    }
    jobs.SetBusy(bBusy); // behind the library: who waits for the end may end the library then
}
