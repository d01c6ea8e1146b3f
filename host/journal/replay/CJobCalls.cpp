#include "journal/replay/CJobCalls.h"

#include "journal/replay/CAnswerBook.h"
#include "journal/replay/CReplayIds.h"
#include "journal/replay/ReplayText.h"

namespace {

bool IsLastOfJob(const SRecordedLine& line)
{
    return line.strOperation == QLatin1String("SetBusy");
}

} // namespace

void CJobCalls::Append(const SRecordedLine& line)
{
    const int nJob = mapRecorded.value(line.strThread, vecJob.size());
    if (nJob == vecJob.size()) {
        mapRecorded.insert(line.strThread, nJob);
        vecJob.append(CExpectedCalls());
    }
    vecJob[nJob].Append(line);
    if (IsLastOfJob(line)) {
        mapRecorded.remove(line.strThread);
    }
}

SReplayMatch CJobCalls::Take(const SReplayedCall& call, const SReplayMoment& moment)
{
    const int nJob = mapRunning.value(call.strThread, -1);
    if (nJob < 0) {
        return Begin(call, moment);
    }
    const int nAt = vecJob.at(nJob).FindOpen(0, true);
    if (nAt == vecJob.at(nJob).GetSize()) { // the program ended within the job
        return { moment.book.Find(call, moment.ids.GetRecorded(call.args), moment.nDue), 0, {}, nullptr, 0 };
    }
    if (vecJob.at(nJob).Match(nAt, call, moment.ids)) {
        return Accept(call.strThread, nJob, nAt);
    }
    return Refuse(call, moment, &vecJob.at(nJob).GetLine(nAt));
}

SReplayMatch CJobCalls::Begin(const SReplayedCall& call, const SReplayMoment& moment)
{
    const SRecordedLine* pExpected = nullptr;
    for (int nJob = 0; nJob < vecJob.size(); ++nJob) {
        if (vecJob.at(nJob).GetState(0) != CExpectedCalls::Open) {
            continue;
        }
        if (vecJob.at(nJob).Match(0, call, moment.ids)) {
            return Accept(call.strThread, nJob, 0);
        }
        if (!pExpected && vecJob.at(nJob).GetLine(0).nNumber < moment.nExpected) {
            pExpected = &vecJob.at(nJob).GetLine(0);
        }
    }
    return Refuse(call, moment, pExpected);
}

SReplayMatch CJobCalls::Refuse(const SReplayedCall& call, const SReplayMoment& moment, const SRecordedLine* pExpected) const
{
    if (pExpected) {
        return { nullptr, 0, ReplayText::Instead(call, *pExpected), pExpected, 0 };
    }
    if (bOpenEnd) {
        return { moment.book.Find(call, moment.ids.GetRecorded(call.args), moment.nDue), 0, {}, nullptr, 0 };
    }
    return { nullptr, 0, ReplayText::Additional(call), nullptr, 0 };
}

SReplayMatch CJobCalls::Accept(const QString& strThread, int nJob, int nAt)
{
    const SRecordedLine& line = vecJob.at(nJob).GetLine(nAt);
    vecJob[nJob].SetState(nAt, CExpectedCalls::Made);
    if (IsLastOfJob(line)) {
        mapRunning.remove(strThread);
    } else {
        mapRunning.insert(strThread, nJob);
    }
    return { &line, line.nNumber, {}, nullptr, 0 };
}

const SRecordedLine* CJobCalls::FindMissing(quint64 nBefore) const
{
    const SRecordedLine* pMissing = nullptr;
    for (const CExpectedCalls& job : vecJob) {
        const int nAt = job.FindOpen(0, true);
        if (nAt < job.GetSize() && job.GetLine(nAt).nNumber < nBefore
            && (!pMissing || job.GetLine(nAt).nNumber < pMissing->nNumber)) {
            pMissing = &job.GetLine(nAt);
        }
    }
    return pMissing;
}

const SRecordedLine* CJobCalls::FindSame(const SReplayedCall& call, const CReplayIds& ids) const
{
    for (const CExpectedCalls& job : vecJob) {
        if (job.GetState(0) == CExpectedCalls::Open && job.WouldMatch(0, call, ids)) {
            return &job.GetLine(0);
        }
    }
    return nullptr;
}
