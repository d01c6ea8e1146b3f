#include "journal/replay/CGuiCalls.h"

#include "journal/replay/CAnswerBook.h"
#include "journal/replay/CReplayIds.h"
#include "journal/replay/ReplayText.h"

namespace {

const SRecordedLine* Answer(const SReplayedCall& call, const SReplayMoment& moment)
{
    return moment.book.Find(call, moment.ids.GetRecorded(call.args), moment.nDue);
}

} // namespace

void CGuiCalls::Append(const SRecordedLine& line, bool bExcused)
{
    calls.Append(line, bExcused);
}

SReplayMatch CGuiCalls::Take(const SReplayedCall& call, const SReplayMoment& moment, bool bExcused)
{
    const int nAt = calls.FindOpen(nNext, true);
    if (nAt < calls.GetSize() && calls.Match(nAt, call, moment.ids)) {
        return Accept(nAt);
    }
    const int nDemanded = calls.FindOpen(nNext, false);
    const bool bDemanded = nDemanded < calls.GetSize();
    const bool bDue = bDemanded && calls.GetLine(nDemanded).nNumber < moment.nExpected;
    if (bDue && calls.Match(nDemanded, call, moment.ids)) { // even where it could be one that is handed back
        return Accept(nDemanded);
    }
    const int nExcused = FindExcused(call, moment);
    if (nExcused < calls.GetSize()) {
        calls.SetState(nExcused, CExpectedCalls::Made);
        return { &calls.GetLine(nExcused), 0, {}, nullptr, 0, true };
    }
    if (bExcused) {
        return { Answer(call, moment), 0, {}, nullptr, 0 };
    }
    return bDemanded && calls.Match(nDemanded, call, moment.ids) ? Accept(nDemanded) : Refuse(call, moment);
}

SReplayMatch CGuiCalls::Accept(int nAt)
{
    for (int n = nNext; n < nAt; ++n) { // excused ones that have not come
        if (calls.GetState(n) == CExpectedCalls::Open) {
            calls.SetState(n, CExpectedCalls::Skipped);
        }
    }
    calls.SetState(nAt, CExpectedCalls::Made);
    nNext = nAt + 1;
    return { &calls.GetLine(nAt), 0, {}, nullptr, 0, true };
}

// It may have come on the other side of one command.
int CGuiCalls::FindExcused(const SReplayedCall& call, const SReplayMoment& moment) const
{
    const int nEnd = calls.FindOpen(calls.FindOpen(nNext, false) + 1, false);
    for (int nAt = calls.FindOpen(nNext, true); nAt < nEnd; nAt = calls.FindOpen(nAt + 1, true)) {
        if (calls.IsExcused(nAt) && calls.Match(nAt, call, moment.ids)) {
            return nAt;
        }
    }
    return calls.GetSize();
}

SReplayMatch CGuiCalls::Refuse(const SReplayedCall& call, const SReplayMoment& moment)
{
    const int nAt = calls.FindOpen(nNext, false);
    if (nAt == calls.GetSize() && bOpenEnd) {
        return { Answer(call, moment), 0, {}, nullptr, 0 };
    }
    if (nAt == calls.GetSize() || calls.GetLine(nAt).nNumber >= moment.nExpected) {
        return { nullptr, 0, ReplayText::Additional(call), nullptr, 0 };
    }
    const SRecordedLine& line = calls.GetLine(nAt);
    const int nSame = FindSameAt(call, moment.ids);
    if (nSame == calls.GetSize()) {
        return { nullptr, 0, ReplayText::Instead(call, line), &line, 0 };
    }
    SReplayMatch match = Accept(nSame); // so that what follows is found again
    match.strFault = ReplayText::TooEarly(call, line);
    match.pExpected = &line;
    return match;
}

const SRecordedLine* CGuiCalls::FindMissing(quint64 nBefore) const
{
    const int nAt = calls.FindOpen(nNext, false);
    return nAt < calls.GetSize() && calls.GetLine(nAt).nNumber < nBefore ? &calls.GetLine(nAt) : nullptr;
}

bool CGuiCalls::HasOpen(quint64 nBefore) const
{
    const int nAt = calls.FindOpen(nNext, true);
    return nAt < calls.GetSize() && calls.GetLine(nAt).nNumber < nBefore;
}

const SRecordedLine* CGuiCalls::FindSame(const SReplayedCall& call, const CReplayIds& ids) const
{
    const int nAt = FindSameAt(call, ids);
    return nAt < calls.GetSize() ? &calls.GetLine(nAt) : nullptr;
}

int CGuiCalls::FindSameAt(const SReplayedCall& call, const CReplayIds& ids) const
{
    int nAt = calls.FindOpen(nNext, false);
    while (nAt < calls.GetSize() && !calls.WouldMatch(nAt, call, ids)) {
        nAt = calls.FindOpen(nAt + 1, false);
    }
    return nAt;
}
