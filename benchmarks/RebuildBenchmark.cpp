#include "CBenchPanel.h"
#include "CSamples.h"

#include <benchmark/benchmark.h>

namespace {

const std::vector<int> vecSize{ 256, 1024, 4096, 16384 };

/// A list of nProcessors in 256 groups, one processor selected.
CBenchPanel& Fill(CBenchPanel& panel, int nProcessors)
{
    panel.SetTree(CBenchPanel::MakeGroupedTree(nProcessors, 256));
    panel.SelectFirstProcessor();
    return panel;
}

/// The rows built anew from the store: shape, expansion, selection and layout, at one size.
void BM_Rebuild(benchmark::State& state)
{
    CBenchPanel panel;
    Fill(panel, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        panel.Rebuild();
    }
    state.counters["rows"] = panel.RowCount();
}

/// All sizes in turn, in one run, with the exponent of the growth.
void BM_RebuildGrowth(benchmark::State& state)
{
    std::vector<CSamples> vecSamples(vecSize.size());
    CBenchPanel panel;
    for (auto _ : state) {
        double fSum = 0.0;
        for (std::size_t i = 0; i < vecSize.size(); ++i) {
            Fill(panel, vecSize[i]).Rebuild();
            for (int nRun = 0; nRun < 3; ++nRun) {
                fSum += vecSamples[i].Time([&panel] { panel.Rebuild(); });
            }
        }
        state.SetIterationTime(fSum);
    }
    std::vector<double> vecMedian;
    for (const CSamples& samples : vecSamples) {
        vecMedian.push_back(samples.Median());
    }
    state.counters["exponent"] = GrowthExponent(vecSize, vecMedian);
    state.counters["ms_256"] = vecMedian.front() * 1e3;
    state.counters["ms_16384"] = vecMedian.back() * 1e3;
}

} // namespace

BENCHMARK(BM_Rebuild)->Unit(benchmark::kMillisecond)->Arg(256)->Arg(1024)->Arg(4096)->Arg(16384);
BENCHMARK(BM_RebuildGrowth)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
