#include "CBenchPanel.h"
#include "CSamples.h"

#include "data/CProcessorTreeData.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int nLookups = 40;

/// The lookups of one repaint of 40 rows. Each works on a private copy of the root, which is cheap only
/// as long as no lookup writes to its copy: one that detached it would show here as some 60 times the
/// cost, so the ratio is taken against copies that do detach.
void BM_LookupsOfARepaint(benchmark::State& state)
{
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(256, 256));
    const QUuid id = panel.Tree().listGroup.constLast().listProcessor.constFirst().idNode;

    CSamples samplesLookup("lookup");
    CSamples samplesDetached("detached");
    for (auto _ : state) {
        state.SetIterationTime(samplesLookup.Time([&id] {
            for (int i = 0; i < nLookups; ++i) {
                benchmark::DoNotOptimize(g_pProcessorTreeData->GetProcessor(id));
            }
        }));
        samplesDetached.Time([] {
            for (int i = 0; i < nLookups; ++i) {
                SProcessorAllNode node;
                g_pProcessorTreeData->GetCurrentTree(node);
                node.listGroup.detach();
                benchmark::DoNotOptimize(node);
            }
        });
    }
    state.counters["ratio"] = samplesLookup.Median() / samplesDetached.Median();
}

} // namespace

BENCHMARK(BM_LookupsOfARepaint)->Unit(benchmark::kMicrosecond)->UseManualTime()->MinTime(0.2);
