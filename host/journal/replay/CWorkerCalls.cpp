#include "journal/replay/CWorkerCalls.h"

#include "journal/recording/CJournalMask.h"
#include "journal/recording/NodeJson.h"
#include "journal/replay/CAnswerBook.h"
#include "journal/replay/CReplayIds.h"
#include "journal/replay/ReplayText.h"
#include "nodes/SProcessorAllNode.h"

#include <algorithm>
#include <limits>

namespace {

bool IsFirstRead(const QString& strOperation)
{
    return strOperation == QLatin1String("GetDiscoveredTree");
}

// The worker asks for the pane with the store's lock, for which the GUI thread may wait.
bool IsUnderLock(const QString& strOperation)
{
    return strOperation == QLatin1String("IsSimulatorPane");
}

// Nor may it wait at its end, for which the GUI thread does.
bool IsHeldBack(const QString& strOperation)
{
    return !IsUnderLock(strOperation) && strOperation != QLatin1String("Detach");
}

bool HasSameTree(const SRecordedLine& one, const SRecordedLine& other)
{
    CJournalMask mask(false);
    return one.pTree == other.pTree
        || (one.pTree && other.pTree && NodeJson::GetWhole(*one.pTree, mask) == NodeJson::GetWhole(*other.pTree, mask));
}

bool HasSameAnswer(const SRecordedLine& one, const SRecordedLine& other)
{
    const QString strResult = QStringLiteral("result");
    return one.strOperation == other.strOperation && HasSameTree(one, other)
        && (one.pTree || one.fields.value(strResult) == other.fields.value(strResult));
}

} // namespace

void CWorkerCalls::Append(const SRecordedLine& line)
{
    const bool bDetach = line.strOperation == QLatin1String("Detach");
    if (IsFirstRead(line.strOperation)) {
        vecReading.append({ calls.GetSize(), 0 });
    } else if (vecReading.isEmpty() && !bDetach) {
        return;
    }
    if (!bDetach) {
        ++vecReading.last().nCount;
    }
    calls.Append(line);
}

SReplayMatch CWorkerCalls::Take(const SReplayedCall& call, const SReplayMoment& moment)
{
    if (nRepeating >= 0) {
        return GoOnRepeating(call);
    }
    if (IsFirstRead(call.strOperation)) {
        return BeginReading(call, moment);
    }
    if (call.strOperation == QLatin1String("Detach")) {
        SkipRepeats(std::numeric_limits<quint64>::max());
    }
    if (nNext < calls.GetSize() && calls.Match(nNext, call, moment.ids)) {
        return Accept(nNext);
    }
    return Refuse(call, moment);
}

// Of refreshes with the same answers the last one that may go on now: how many messages lead to one depends on time.
SReplayMatch CWorkerCalls::BeginReading(const SReplayedCall& call, const SReplayMoment& moment)
{
    int nReading = FindReading();
    if (nReading == vecReading.size()) {
        if (vecReading.isEmpty() || IsBehindLost(call, moment)) {
            return Refuse(call, moment);
        }
        nRepeating = vecReading.constLast().nFirst;
        return GoOnRepeating(call);
    }
    if (nNext != vecReading.at(nReading).nFirst) { // in the middle of another one
        return Refuse(call, moment);
    }
    while (nReading + 1 < vecReading.size() && IsRepeat(nReading + 1)
           && moment.fnIsOpen(GetGate(vecReading.at(nReading + 1).nFirst))) {
        ++nReading;
    }
    return Accept(vecReading.at(nReading).nFirst);
}

// What is not compared is read all the same.
bool CWorkerCalls::IsBehindLost(const SReplayedCall& call, const SReplayMoment& moment) const
{
    const SRecordedLine* pLatest = bOpenEnd ? moment.book.Find(call, call.args, moment.nNext) : nullptr;
    return pLatest && pLatest->nNumber > calls.GetLine(vecReading.last().nFirst).nNumber;
}

SReplayMatch CWorkerCalls::Accept(int nAt)
{
    for (int n = nNext; n < nAt; ++n) {
        calls.SetState(n, CExpectedCalls::Skipped);
    }
    calls.SetState(nAt, CExpectedCalls::Made);
    nNext = nAt + 1;
    return { &calls.GetLine(nAt), GetGate(nAt), {}, nullptr, GetLock(nAt) };
}

// The answers of the last refresh once more.
SReplayMatch CWorkerCalls::GoOnRepeating(const SReplayedCall& call)
{
    const SRecordedLine& line = calls.GetLine(nRepeating);
    const quint64 nLock = GetLock(nRepeating);
    ++nRepeating;
    if (call.strOperation != line.strOperation || IsUnderLock(call.strOperation)
        || nRepeating == vecReading.constLast().nFirst + vecReading.constLast().nCount) {
        nRepeating = -1;
    }
    if (call.strOperation != line.strOperation) {
        return { nullptr, 0, ReplayText::Instead(call, line), &line, 0 };
    }
    return { &line, 0, {}, nullptr, nLock };
}

SReplayMatch CWorkerCalls::Refuse(const SReplayedCall& call, const SReplayMoment& moment) const
{
    if (nNext < calls.GetSize()) {
        const SRecordedLine& line = calls.GetLine(nNext);
        return { nullptr, 0, ReplayText::Instead(call, line), &line, 0 };
    }
    if (bOpenEnd) {
        return { moment.book.Find(call, moment.ids.GetRecorded(call.args), moment.nNext), 0, {}, nullptr, 0 };
    }
    return { nullptr, 0, ReplayText::Additional(call), nullptr, 0 };
}

const SRecordedLine* CWorkerCalls::FindMissing(quint64 nBefore) const
{
    int nAt = nNext;
    for (int n = FindReading(); n < vecReading.size() && vecReading.at(n).nFirst == nAt && IsExcused(n); ++n) {
        nAt += vecReading.at(n).nCount;
    }
    return nAt < calls.GetSize() && calls.GetLine(nAt).nNumber < nBefore ? &calls.GetLine(nAt) : nullptr;
}

bool CWorkerCalls::HasOpenRepeat(quint64 nBefore) const
{
    const int nReading = FindReading();
    return nReading < vecReading.size() && vecReading.at(nReading).nFirst == nNext && IsExcused(nReading)
        && calls.GetLine(nNext).nNumber < nBefore;
}

void CWorkerCalls::SkipRepeats(quint64 nBefore)
{
    while (HasOpenRepeat(nBefore)) {
        const int nEnd = nNext + vecReading.at(FindReading()).nCount;
        for (; nNext < nEnd; ++nNext) {
            calls.SetState(nNext, CExpectedCalls::Skipped);
        }
    }
}

const SRecordedLine* CWorkerCalls::FindSame(const SReplayedCall& call, const CReplayIds& ids) const
{
    return nNext < calls.GetSize() && calls.WouldMatch(nNext, call, ids) ? &calls.GetLine(nNext) : nullptr;
}

bool CWorkerCalls::IsRepeat(int nReading) const
{
    if (nReading == 0 || vecReading.at(nReading).nCount != vecReading.at(nReading - 1).nCount) {
        return false;
    }
    for (int n = 0; n < vecReading.at(nReading).nCount; ++n) {
        if (!HasSameAnswer(calls.GetLine(vecReading.at(nReading).nFirst + n),
                           calls.GetLine(vecReading.at(nReading - 1).nFirst + n))) {
            return false;
        }
    }
    return true;
}

bool CWorkerCalls::IsExcused(int nReading) const
{
    return nReading + 1 < vecReading.size() && IsRepeat(nReading);
}

/// The first refresh that has not begun.
int CWorkerCalls::FindReading() const
{
    const auto it
        = std::find_if(vecReading.begin(), vecReading.end(), [this](const SReading& reading) { return reading.nFirst >= nNext; });
    return static_cast<int>(it - vecReading.begin());
}

/// When the refresh of that place was compared; 0 for no refresh.
quint64 CWorkerCalls::GetLock(int nAt) const
{
    for (int n = nAt; n < calls.GetSize() && calls.GetLine(n).strOperation != QLatin1String("Detach"); ++n) {
        if (IsUnderLock(calls.GetLine(n).strOperation)) {
            return calls.GetLine(n).nNumber;
        }
    }
    return 0;
}

// The last call before the one under the lock waits for both.
quint64 CWorkerCalls::GetGate(int nAt) const
{
    const bool bBeforeLock = nAt + 1 < calls.GetSize() && IsUnderLock(calls.GetLine(nAt + 1).strOperation);
    return IsHeldBack(calls.GetLine(nAt).strOperation) ? calls.GetLine(bBeforeLock ? nAt + 1 : nAt).nNumber : 0;
}
