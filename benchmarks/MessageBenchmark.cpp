#include "CBenchPanel.h"
#include "CPlainTree.h"
#include "CSamples.h"

#include "data/CProcessorTreeData.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

namespace {

constexpr int nLimit = 256;

void PrepareTree(QTreeWidget& tree)
{
    tree.setObjectName(QStringLiteral("ProcessorTree"));
    tree.setStyleSheet(CBenchPanel::Sheet());
    tree.header()->hide();
    tree.setIndentation(15);
    tree.resize(CBenchPanel::nWidth, CBenchPanel::nDefaultHeight);
    tree.show();
}

/// From the library's message to the painted rows, through worker, store, rebuild and paint, at 256
/// processors in 256 groups; against a QTreeWidget that is refilled and repainted. Beside it, in the
/// same run, a refresh that finds nothing changed, as a part of the whole in per cent.
void BM_MessageToPixels(benchmark::State& state)
{
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(nLimit, nLimit));
    QTreeWidget plain;
    PrepareTree(plain);
    const CPlainTree plainTree;

    CSamples samplesPanel;
    CSamples samplesPlain;
    CSamples samplesNothing;
    for (auto _ : state) {
        panel.ChangeOneProcessor();
        state.SetIterationTime(samplesPanel.TimeByWall([&panel] { panel.SendMessageAndWaitForPaint(); }));
        panel.Settle();
        samplesPlain.TimeByWall([&] {
            plainTree.Fill(&plain, panel.Tree());
            plain.viewport()->repaint();
        });
        samplesNothing.TimeByWall([] { g_pProcessorTreeData->Refresh(); });
    }
    state.counters["ratio"] = samplesPanel.Median() / samplesPlain.Median();
    state.counters["plain_ms"] = samplesPlain.Median() * 1e3;
    state.counters["nothing_us"] = samplesNothing.Median() * 1e6;
    state.counters["nothing_percent"] = 100.0 * samplesNothing.Median() / samplesPanel.Median();
}

} // namespace

BENCHMARK(BM_MessageToPixels)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2.0);
