#include "CBenchPanel.h"
#include "CPair.h"

namespace {

const std::vector<int> vecSize{ 256, 1024, 4096, 16384 };
const std::vector<const char*> vecName{ "256", "1024", "4096", "16384" };

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
    std::vector<CSamples> vecSamples(vecName.cbegin(), vecName.cend());
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

/// What 513 selected rows, all that show at 256 processors in 256 groups, add to the rebuild of one.
void BM_SelectionOverRebuild(benchmark::State& state)
{
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(256, 256));
    CSamples samplesAll("all");
    CSamples samplesOne("one");
    for (auto _ : state) {
        panel.SelectFirstProcessor();
        panel.Rebuild();
        const double fOne = samplesOne.Time([&panel] { panel.Rebuild(); });
        panel.SelectAll();
        panel.Rebuild();
        state.SetIterationTime(samplesAll.Time([&panel] { panel.Rebuild(); }) - fOne);
    }
    state.counters["selected_ms"] = (samplesAll.Median() - samplesOne.Median()) * 1e3;
    state.counters["one_ms"] = samplesOne.Median() * 1e3;
}

} // namespace

BENCHMARK(BM_Rebuild)->Unit(benchmark::kMillisecond)->Arg(256)->Arg(1024)->Arg(4096)->Arg(16384);
BENCHMARK(BM_RebuildGrowth)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount() / 9);
BENCHMARK(BM_SelectionOverRebuild)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
