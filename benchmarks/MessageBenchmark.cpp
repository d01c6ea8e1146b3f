#include "CBenchPanel.h"
#include "CPair.h"
#include "CPlainTree.h"

#include "data/CProcessorTreeData.h"

#include <QTreeWidget>

namespace {

constexpr int nLimit = 256;

/// From the library's message to the painted rows, through worker, store, rebuild and paint, at 256
/// processors in 256 groups; against a QTreeWidget that is refilled and repainted. Beside it, in the
/// same run, a refresh that finds nothing changed, as a part of the whole in per cent.
void BM_MessageToPixels(benchmark::State& state)
{
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(nLimit, nLimit));
    QTreeWidget plain;
    CPlainTree::Prepare(&plain);
    const CPlainTree plainTree;

    CPair pair(state);
    CSamples samplesNothing("nothing");
    for (auto _ : state) {
        panel.ChangeOneProcessor();
        pair.TimeByWall([&panel] { panel.SendMessageAndWaitForPaint(); }, [&panel] { panel.Settle(); },
                        [&] {
                            plainTree.Fill(&plain, panel.Tree());
                            plain.viewport()->repaint();
                        });
        panel.Settle(); // the plain view has posted a second paint, which is not the panel's
        samplesNothing.Time([] { g_pProcessorTreeData->Refresh(); });
    }
    state.counters["nothing_us"] = samplesNothing.Median() * 1e6;
    state.counters["nothing_percent"] = 100.0 * samplesNothing.Median() / pair.GetPanelMedian();
}

} // namespace

BENCHMARK(BM_MessageToPixels)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
