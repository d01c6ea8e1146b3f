#include "CSlowRuntimeControl.h"

#include "data/CProcessorTreeData.h"
#include "fixtures/CFreshStore.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "live/CFullLibrary.h"
#include "live/CLivePanel.h"
#include "nodes/SProcessorAllNode.h"

#include <QElapsedTimer>
#include <QtTest>

#include <benchmark/benchmark.h>

namespace {

constexpr int nPatienceMs = 300000;

/// Knows when the panel has dealt with the first selection that it hears of, and lets the library be quick from then on.
class CFirstShown
{
public:
    explicit CFirstShown(CSlowRuntimeControl& runtimeIn) : runtime(runtimeIn)
    {
        timer.start();
        // Behind the panel's own slot, which was connected before.
        QObject::connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeSelectChanged, &receiver, [this] { Note(); });
    }

    bool Await() const
    {
        return QTest::qWaitFor([this] { return nNanoseconds > 0; }, nPatienceMs);
    }

    double GetSeconds() const
    {
        return 1e-9 * double(nNanoseconds);
    }

    int CountCalls() const
    {
        return nCalls;
    }

private:
    void Note()
    {
        if (nNanoseconds == 0) {
            nNanoseconds = timer.nsecsElapsed();
            nCalls = runtime.CountCalls();
            runtime.SetTime({});
        }
    }

    CSlowRuntimeControl& runtime;
    QObject receiver;
    QElapsedTimer timer;
    qint64 nNanoseconds = 0;
    int nCalls = 0;
};

/// All processors of the Discovered pane.
std::vector<QUuid> FindProcessors()
{
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    std::vector<QUuid> vecId;
    for (const SProcessorGroupNode& group : std::as_const(node.listGroup)) {
        vecId.push_back(group.listProcessor.first().idNode);
    }
    return vecId;
}

/// The library selects 256 nodes. The panel reports each of them back and asks IsNodeInUse for all that it has so far, on the GUI
/// thread, each call of which takes as many microseconds as the argument says: the time from the selection to the end of that.
/// The counters have how often it asked, and how often until there was rest: what the library hears comes back as selections, for
/// each of which the panel does the same once more.
void BM_LibrarySelects256Nodes(benchmark::State& state)
{
    const CFreshStore store;
    CFullLibrary library;
    CSlowRuntimeControl runtime;
    CLivePanel panel;
    bool bGood = panel.Settle();
    const int nBefore = runtime.CountCalls();
    const std::vector<QUuid> vecId = FindProcessors();
    for (auto _ : state) {
        const CFirstShown shown(runtime);
        runtime.SetTime(std::chrono::microseconds(state.range(0)));
        runtime.SetSelectedNodes(vecId);
        bGood = shown.Await() && bGood;
        state.SetIterationTime(shown.GetSeconds());
        state.counters["calls"] = shown.CountCalls() - nBefore;
        state.counters["rest"] = panel.Settle() && panel.HasSelected(vecId) ? 1 : 0;
        state.counters["until_rest"] = runtime.CountCalls() - nBefore;
    }
    if (!bGood) {
        state.SkipWithError("the panel does not show what the library has selected");
    }
}

} // namespace

BENCHMARK(BM_LibrarySelects256Nodes)->Unit(benchmark::kMillisecond)->Arg(0)->Arg(10)->Arg(1000)->UseManualTime()->Iterations(1);
