#include "journal/replay/CReplayCore.h"

#include "journal/replay/CRecordedRun.h"
#include "journal/replay/ReplayText.h"
#include "nodes/SProcessorAllNode.h"

#include <QFileInfo>

#include <limits>

namespace {

constexpr int nShowMessage = 1;  ///< refreshes the panel
constexpr int nWakeMessage = 59; ///< wakes its worker, which then refreshes nothing

/// The worker has told its view what a refresh found.
constexpr std::chrono::milliseconds timeSettled{ 5 };
/// A message may lie in the worker's queue until the next one.
constexpr std::chrono::milliseconds timeNudge{ 100 };
/// So far behind a message its refresh may come.
constexpr std::chrono::milliseconds timeEarlier{ 100 };
/// What is excused when it does not come, has not.
constexpr std::chrono::milliseconds timeExcused{ 250 };

bool IsGui(const SReplayedCall& call)
{
    return call.strThread == QLatin1String("gui");
}

QString GetId(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

} // namespace

CReplayCore::CReplayCore(const CRecordedRun& runIn, const FnDiffered& fnDifferedIn)
    : run(runIn), fnDiffered(fnDifferedIn), book(runIn), index(runIn), ids(runIn), script(runIn), nDue(runIn.GetStartNumber()),
      timeLast(std::chrono::steady_clock::now()), bFirstState(!runIn.HasBeginning())
{ }

CReplayCore::~CReplayCore() = default;

void CReplayCore::Close()
{
    Release();
    Lock lock(mutex);
    condMoved.wait(lock, [this] { return nInside == 0; });
}

bool CReplayCore::AwaitJobs(std::chrono::milliseconds timeMost)
{
    Lock lock(mutex);
    return condMoved.wait_for(lock, timeMost, [this] { return nJobs <= 0; });
}

SReplayAnswer CReplayCore::Answer(const SReplayedCall& call)
{
    Lock lock(mutex);
    ++nInside;
    timeLast = std::chrono::steady_clock::now();
    const SReplayMatch match = Take(call, lock);
    if (!match.strFault.isEmpty()) {
        SReplayDifference difference{ std::nullopt, call, ReplayText::GetClass(call.strThread), match.strFault };
        if (match.pExpected) {
            difference.recorded = *match.pExpected;
        }
        Report(difference, lock);
    }
    condMoved.notify_all(); // a command of the GUI thread may let others go on
    Await(match, call, lock);
    const SReplayAnswer answer = MakeAnswer(match, call, lock);
    timeLast = std::chrono::steady_clock::now();
    if (call.strOperation == QLatin1String("IsSimulatorPane")) {
        timeRead = timeLast;
        bRead = true;
    } else if (call.strOperation == QLatin1String("SetBusy")) {
        nJobs += call.args.at(0).toBool() ? 1 : -1;
    }
    --nInside;
    condMoved.notify_all();
    return answer;
}

SReplayMatch CReplayCore::Take(const SReplayedCall& call, const Lock& lock)
{
    if (bDiffered) { // what was read behind the last message
        const SRecordedLine* pNext = index.FindNext(nDue, CLineIndex::Messages);
        const quint64 nBefore = pNext ? pNext->nNumber : std::numeric_limits<quint64>::max();
        return { book.Find(call, ids.GetRecorded(call.args), nBefore), 0, {}, nullptr, 0 };
    }
    if (bFirstState) {
        return { book.Find(call, ids.GetRecorded(call.args), nDue), 0, {}, nullptr, 0 };
    }
    const SRecordedLine* pStep = index.FindNext(nDue, CLineIndex::UserSteps);
    const quint64 nExpected = pStep ? pStep->nNumber : std::numeric_limits<quint64>::max();
    const SRecordedLine* pInput = index.FindNext(nDue, CLineIndex::Inputs);
    const quint64 nNext = pInput ? pInput->nNumber : std::numeric_limits<quint64>::max();
    const SReplayMoment moment{ ids, book, nDue, nNext, nExpected, [&](quint64 n) { return IsOpen(n, lock); } };
    return script.Take(call, moment);
}

// Never the GUI thread.
void CReplayCore::Await(const SReplayMatch& match, const SReplayedCall& call, Lock& lock)
{
    if (IsGui(call)) {
        return;
    }
    const bool bForEver = match.pLine && match.pLine->strKind == QLatin1String("begin");
    condMoved.wait(lock, [&] { return bReleased || (!bForEver && IsOpen(match.nGate, lock)); });
}

bool CReplayCore::IsOpen(quint64 nNumber, const Lock& lock) const
{
    Q_UNUSED(lock)
    const SRecordedLine* pNext = index.FindNext(nDue, CLineIndex::Messages);
    const bool bDelivered = nNumber <= nDue || !pNext || nNumber < pNext->nNumber;
    return bReleased || (bDelivered && (bDiffered || !script.FindMissingOfGui(nNumber)));
}

void CReplayCore::Report(const SReplayDifference& difference, Lock& lock)
{
    if (bDiffered) {
        return;
    }
    bDiffered = true;
    lock.unlock();
    fnDiffered(difference);
    lock.lock();
}

SReplayAnswer CReplayCore::MakeAnswer(const SReplayMatch& match, const SReplayedCall& call, const Lock& lock)
{
    SReplayAnswer answer = MakeAnswer(match.pLine, lock);
    if (match.nLock != 0) {
        writes.Apply(answer, *match.pLine, match.nLock);
    } else if (match.bRecorded) {
        writes.Note(call, match.pLine->nNumber);
    }
    return answer;
}

SReplayAnswer CReplayCore::MakeAnswer(const SRecordedLine* pLine, const Lock& lock)
{
    Q_UNUSED(lock)
    if (!pLine) {
        return {};
    }
    const QJsonValue result = pLine->fields.value(QStringLiteral("result"));
    if (pLine->strOperation == QLatin1String("GetListFilePath")) {
        const QString strOwn = folder.filePath(QFileInfo(result.toString()).fileName());
        ids.SetPath(strOwn, result.toString());
        return { strOwn, {} };
    }
    SReplayAnswer answer{ ids.GetPanelValue(result), pLine->pTree };
    if (pLine->pTree && ids.HasAny()) {
        const auto pTree = QSharedPointer<SProcessorAllNode>::create(*pLine->pTree);
        ids.Translate(*pTree);
        answer.pTree = pTree;
    }
    return answer;
}

void CReplayCore::Attach(const QString& strObject, CObserver* pObserver)
{
    hub.Attach(strObject, pObserver);
}

void CReplayCore::Detach(const QString& strObject, CObserver* pObserver)
{
    hub.Detach(strObject, pObserver);
}

SReplayAnswer CReplayCore::AnswerHost(const SReplayedCall& call)
{
    const Lock lock(mutex);
    return MakeAnswer(book.Find(call, ids.GetRecorded(call.args), nDue), lock);
}

void CReplayCore::ShowFirstState()
{
    hub.Post(QStringLiteral("PrcListControl"), nShowMessage);
}

void CReplayCore::Deliver(const SRecordedLine& line)
{
    {
        const Lock lock(mutex);
        bFirstState = false;
        MoveTo(line.nNumber + 1, lock);
        script.SkipExcused(line.nNumber);
        timeLast = std::chrono::steady_clock::now();
    }
    if (line.strKind != QLatin1String("message")) {
        return;
    }
    const int nMessage = line.fields.value(QStringLiteral("message")).toInt();
    if (line.strThread == QLatin1String("gui")) {
        hub.Send(line.strObject, nMessage);
    } else {
        hub.Post(line.strObject, nMessage);
    }
}

void CReplayCore::MoveTo(quint64 nNumber, const Lock& lock)
{
    Q_UNUSED(lock)
    if (nNumber > nDue) {
        nDue = nNumber;
        condMoved.notify_all();
    }
}

bool CReplayCore::HasCaughtUp(quint64 nNumber)
{
    const Lock lock(mutex);
    if (!bFirstState) {
        MoveTo(nNumber, lock);
    }
    const bool bReady = hub.IsIdle() && IsReady(nNumber, lock);
    if (!bReady && hub.IsIdle()) {
        Nudge(nNumber, lock);
    }
    return bReady;
}

bool CReplayCore::IsReady(quint64 nNumber, const Lock& lock)
{
    if (std::chrono::steady_clock::now() - timeRead < timeSettled) {
        return false;
    }
    if (bFirstState) {
        return bRead;
    }
    if (bDiffered) {
        return true;
    }
    return !script.FindMissing(GetDemanded(nNumber, lock)) && (!script.HasOpenExcused(nNumber) || IsQuietFor(timeExcused, lock));
}

// A step of the user has no effect before the first command that comes of it: refreshes that were compared between the two
// are let through first, as the GUI thread cannot be held back later. What the panel calls while it goes comes of its end alone.
quint64 CReplayCore::GetDemanded(quint64 nNumber, const Lock& lock) const
{
    Q_UNUSED(lock)
    const SRecordedLine* pLine = index.FindNext(nNumber, CLineIndex::Inputs);
    if (!pLine || pLine->nNumber != nNumber || pLine->strKind != QLatin1String("user")) {
        return nNumber;
    }
    const SRecordedLine* pNext = index.FindNext(nNumber + 1, CLineIndex::InputsAndGuiCalls);
    return pNext ? std::max(nNumber, std::min(pNext->nNumber, run.GetTeardownNumber())) : nNumber;
}

bool CReplayCore::IsQuietFor(std::chrono::milliseconds time, const Lock& lock) const
{
    Q_UNUSED(lock)
    return std::chrono::steady_clock::now() - timeLast >= time;
}

void CReplayCore::Nudge(quint64 nNumber, const Lock& lock)
{
    if (!IsQuietFor(timeNudge, lock)) {
        return;
    }
    const SRecordedLine* pLine = bFirstState ? nullptr : script.FindMissingOfWorker(nNumber);
    if (bFirstState || pLine) {
        timeLast = std::chrono::steady_clock::now();
        hub.Post(QStringLiteral("PrcListControl"), pLine && IsOfEarlierMessage(*pLine) ? nShowMessage : nWakeMessage);
    }
}

// Its message was before the start of a run without its beginning.
bool CReplayCore::IsOfEarlierMessage(const SRecordedLine& line) const
{
    const qint64 nStart = run.GetLines().at(run.GetFirstPlace()).nMicroseconds;
    return !run.HasBeginning() && std::chrono::microseconds(line.nMicroseconds - nStart) < timeEarlier;
}

void CReplayCore::Miss(quint64 nNumber)
{
    Lock lock(mutex);
    const SRecordedLine* pLine = script.FindMissing(GetDemanded(nNumber, lock)); // as far as it was waited for
    if (pLine) {
        Report({ *pLine, std::nullopt, ReplayText::GetClass(pLine->strThread), ReplayText::Missing(*pLine) }, lock);
        condMoved.notify_all();
    }
}

void CReplayCore::Release()
{
    const Lock lock(mutex);
    bReleased = true;
    condMoved.notify_all();
}

QUuid CReplayCore::GetPanelId(const QUuid& idRecorded) const
{
    const Lock lock(mutex);
    return QUuid(ids.GetPanelId(GetId(idRecorded)));
}

bool CReplayCore::HasDiffered() const
{
    const Lock lock(mutex);
    return bDiffered;
}
