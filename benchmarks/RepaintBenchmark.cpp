#include "CBenchPanel.h"
#include "CPlainTree.h"
#include "CSamples.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>

#include <benchmark/benchmark.h>

namespace {

constexpr int nRows = 40;
constexpr int nHeight = nRows * 32;

/// A plain view of the same rows, in the same place and under the same sheet.
void PrepareTree(QTreeView& tree, QStandardItemModel& model)
{
    tree.setObjectName(QStringLiteral("ProcessorTree"));
    tree.setStyleSheet(CBenchPanel::Sheet());
    tree.setModel(&model);
    tree.header()->hide();
    tree.setIndentation(15);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.expandAll();
    tree.resize(CBenchPanel::nWidth, nHeight);
    tree.show();
}

/// 40 rows painted whole, every processor with its online mark and its Primary or Backup mark.
void BM_RepaintViewport(benchmark::State& state)
{
    const SProcessorAllNode node = CBenchPanel::MakeMarkedTree(nRows);
    CBenchPanel panel(nHeight);
    panel.SetTree(node);
    QStandardItemModel model;
    CPlainTree().Fill(&model, node);
    QTreeView plain;
    PrepareTree(plain, model);
    QCoreApplication::processEvents();

    CSamples samplesPanel;
    CSamples samplesPlain;
    for (auto _ : state) {
        state.SetIterationTime(samplesPanel.Time([&panel] { panel.Viewport()->repaint(); }));
        samplesPlain.Time([&plain] { plain.viewport()->repaint(); });
    }
    state.counters["ratio"] = samplesPanel.Median() / samplesPlain.Median();
    state.counters["plain_ms"] = samplesPlain.Median() * 1e3;
}

} // namespace

BENCHMARK(BM_RepaintViewport)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2.0);
