#include "CGuiPulse.h"

#include "live/CDeviceBurst.h"
#include "live/CFullLibrary.h"
#include "live/CLivePanel.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

constexpr int nEvents = 10000;
constexpr int nPatienceMs = 10000;
constexpr std::chrono::milliseconds timeBurst{ 1000 };

/// Runs the event loop until the panel shows what the library has; false after ten seconds. A pulse wakes it.
bool AwaitTruth(const CLivePanel& panel)
{
    QElapsedTimer timer;
    timer.start();
    while (!panel.ShowsLibrary() && !timer.hasExpired(nPatienceMs)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return panel.ShowsLibrary();
}

double GetLoad()
{
    double fLoad = 0.0;
    return getloadavg(&fLoad, 1) == 1 ? fLoad : -1.0;
}

/// From the last of ten thousand device events in a second, from eight threads at both limits, to its rows on the screen, with
/// nobody at the panel. In the counters: the most messages within a second that made the panel read, the longest queue of its
/// worker, the longest that the GUI thread let an event wait and what it did meanwhile itself, and the load of the machine. With
/// 1 as its argument every tenth event is of another kind, so that all numbers of the library take part.
void BM_BurstOfDeviceEvents(benchmark::State& state)
{
    CFullLibrary library;
    CLivePanel panel;
    CGuiPulse pulse;
    bool bGood = AwaitTruth(panel);
    const double fLoad = GetLoad();
    for (auto _ : state) {
        pulse.Clear();
        panel.watch.Clear();
        CDeviceBurst burst(*library, state.range(0), nEvents, timeBurst);
        while (!burst.IsOver()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QElapsedTimer timer;
        timer.start();
        bGood = AwaitTruth(panel) && bGood;
        state.SetIterationTime(1e-9 * double(timer.nsecsElapsed()));
    }
    if (!bGood) {
        state.SkipWithError("the panel does not show what the library has");
    }
    state.counters["per_second"] = panel.watch.GetMostInASecond();
    state.counters["queue"] = panel.watch.GetLongestQueue();
    state.counters["gui_ms"] = 1e-3 * double(pulse.GetLongest().count());
    state.counters["gui_cpu_ms"] = 1e-3 * double(pulse.GetBusiest().count());
    state.counters["load"] = fLoad;
}

} // namespace

BENCHMARK(BM_BurstOfDeviceEvents)->Unit(benchmark::kMillisecond)->Arg(0)->Arg(1)->UseManualTime()->Iterations(1)->Repetitions(9);
