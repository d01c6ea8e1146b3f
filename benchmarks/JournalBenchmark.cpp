#include "CBenchPanel.h"
#include "CSamples.h"

#include "controlhost/CJobs.h"
#include "journal/CControlJournal.h"
#include "journal/guard/CGuiGuard.h"
#include "journal/recording/CJournalRecorder.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <thread>

namespace {

constexpr int nLimit = 256;
constexpr std::chrono::milliseconds timeToRest{ 2 }; ///< the watching thread has just begun

/// The journal as Kestrel has it: lines for the dock, the guard, the recording on a disk.
class CBenchJournal
{
public:
    CBenchJournal()
    {
        log.SetRecorder(&guard);
        writer.Open(folder.filePath(QStringLiteral("journal")), {}, false);
    }

    /// Between the two the panel's calls go through the decorators, and the event loop is watched.
    void Begin()
    {
        pDecorators = std::make_unique<CControlJournal>(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
        guard.WatchLoop();
    }

    void End()
    {
        guard.LeaveLoop();
        pDecorators.reset();
    }

    quint64 GetLost() const
    {
        return writer.GetLost();
    }

private:
    QTemporaryDir folder;
    CJournalWriter writer;
    CJournalRecorder recorder{ writer };
    CGuiGuard guard{ recorder };
    CCallLog log{ 4096 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pDecorators;
};

/// What the journal costs in per cent, each time of a pair beside the other: what else the machine does comes to both.
class CPairs
{
public:
    void Add(double fPlain, double fJournal)
    {
        vecPercent.push_back(100.0 * (fJournal / fPlain - 1.0));
    }

    /// The value below which that part of the pairs lies; fPart from 0 to 1. 0 without pairs.
    double Quantile(double fPart) const
    {
        std::vector<double> vecSorted = vecPercent;
        std::sort(vecSorted.begin(), vecSorted.end());
        return vecSorted.empty() ? 0.0 : vecSorted[static_cast<std::size_t>(fPart * static_cast<double>(vecSorted.size() - 1))];
    }

private:
    std::vector<double> vecPercent;
};

/// From the library's message to the painted rows at 256 processors in 256 groups: pairs of once without any decorator and once
/// with the journal, either of them first in turn. The journal's own thread works beside, and is over before the next.
void BM_JournalOnTheWayToPixels(benchmark::State& state)
{
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(nLimit, nLimit));
    CBenchJournal journal;
    CSamples samplesPlain("plain");
    CSamples samplesJournal("journal");
    CPairs pairs;
    const auto fnMeasure = [&panel](CSamples& samples) {
        panel.ChangeOneProcessor();
        std::this_thread::sleep_for(timeToRest);
        const double fSeconds = samples.TimeByWall([&panel] { panel.SendMessageAndWaitForPaint(); });
        panel.Settle();
        return fSeconds;
    };
    const auto fnMeasureJournal = [&] {
        journal.Begin();
        const double fSeconds = fnMeasure(samplesJournal);
        journal.End();
        return fSeconds;
    };
    bool bJournalFirst = false;
    for (auto _ : state) {
        const double fFirst = bJournalFirst ? fnMeasureJournal() : fnMeasure(samplesPlain);
        const double fSecond = bJournalFirst ? fnMeasure(samplesPlain) : fnMeasureJournal();
        pairs.Add(bJournalFirst ? fSecond : fFirst, bJournalFirst ? fFirst : fSecond);
        state.SetIterationTime(bJournalFirst ? fFirst : fSecond);
        bJournalFirst = !bJournalFirst;
    }
    if (journal.GetLost() > 0) {
        state.SkipWithError("the journal lost lines");
    }
    state.counters["plain_ms"] = samplesPlain.Median() * 1e3;
    state.counters["journal_ms"] = samplesJournal.Median() * 1e3;
    state.counters["percent"] = pairs.Quantile(0.5);
    state.counters["percent_25"] = pairs.Quantile(0.25);
    state.counters["percent_75"] = pairs.Quantile(0.75);
}

} // namespace

BENCHMARK(BM_JournalOnTheWayToPixels)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2.0);
