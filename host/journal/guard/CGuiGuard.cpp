#include "journal/guard/CGuiGuard.h"

#include "journal/recording/JournalThread.h"
#include "journal/recording/SJournalRecord.h"

#include <numeric>
#include <utility>

namespace {

constexpr std::size_t nMostSlow = 16;

QString GetName(const char* szObject, const char* szOperation)
{
    return QLatin1String(szObject) + QLatin1Char('.') + QLatin1String(szOperation);
}

} // namespace

CGuiGuard::CGuiGuard(ICallRecorder& innerIn) : inner(innerIn) { }

void CGuiGuard::Begin(SJournalRecord& record)
{
    inner.Begin(record);
    if (JournalThread::IsGui()) {
        const std::lock_guard<std::mutex> lock(mutex);
        szObject = record.szObject;
        szOperation = record.szOperation;
    }
}

void CGuiGuard::Write(SJournalRecord&& record)
{
    if (record.line == LineCall && JournalThread::IsGui()) {
        EndCall(record);
    }
    inner.Write(std::move(record));
}

void CGuiGuard::WatchLoop()
{
    pWatch = std::make_unique<CStallWatch>([this] { BeginStall(); });
    connect(pWatch.get(), &CStallWatch::Stalled, this, &CGuiGuard::EndStall);
}

void CGuiGuard::LeaveLoop()
{
    pWatch.reset();
}

int CGuiGuard::GetCount() const
{
    return nCount;
}

void CGuiGuard::EndCall(const SJournalRecord& record)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        szObject = szOperation = nullptr;
    }
    if (record.timeTaken <= timeCallLimit) {
        return;
    }
    SGuiHold hold;
    hold.strOperation = GetName(record.szObject, record.szOperation);
    if (vecSlow.size() == nMostSlow) {
        vecSlow.erase(vecSlow.begin());
    }
    vecSlow.push_back({ hold.strOperation, std::chrono::steady_clock::now(), record.timeTaken });
    hold.nMilliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(record.timeTaken).count();
    Record("slow call", hold);
    Report(hold);
}

// On the watching thread.
void CGuiGuard::BeginStall()
{
    SGuiHold hold;
    hold.strOperation = GetOperation();
    hold.nMilliseconds = CStallWatch::timeLimit.count();
    Record("stall begins", hold);
}

void CGuiGuard::EndStall(qint64 nMilliseconds)
{
    SGuiHold hold;
    hold.strOperation = TakeCause(std::chrono::milliseconds(nMilliseconds));
    hold.nMilliseconds = nMilliseconds;
    hold.bStall = true;
    Record("stall", hold);
    if (hold.strOperation.isEmpty()) {
        Report(hold);
    }
}

void CGuiGuard::Report(const SGuiHold& hold)
{
    ++nCount;
    emit Held(hold);
}

void CGuiGuard::Record(const char* szWhat, const SGuiHold& hold)
{
    SJournalRecord record;
    record.line = LineGuard;
    record.szObject = "Guard";
    record.szOperation = szWhat;
    record.vecField = { { "during", hold.strOperation }, { "ms", hold.nMilliseconds } };
    inner.Write(std::move(record));
}

QString CGuiGuard::GetOperation()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return szObject ? GetName(szObject, szOperation) : QString();
}

// The last call that was reported during the stall that ends now; none when much of the stall was something else.
QString CGuiGuard::TakeCause(std::chrono::milliseconds time)
{
    const std::vector<SSlowCall> vecKnown = std::exchange(vecSlow, {});
    const auto timeBegin = std::chrono::steady_clock::now() - time;
    const auto addTaken = [&](std::chrono::nanoseconds timeSum, const SSlowCall& call) {
        return call.timeEnd >= timeBegin ? timeSum + call.timeTaken : timeSum;
    };
    const auto timeCalls = std::accumulate(vecKnown.begin(), vecKnown.end(), std::chrono::nanoseconds(0), addTaken);
    return timeCalls.count() > 0 && time - timeCalls <= CStallWatch::timeLimit ? vecKnown.back().strOperation : QString();
}
