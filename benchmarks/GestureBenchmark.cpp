// What the panel does at once when its user acts, each beside the same gesture on Qt's own views.

#include "CBenchPanel.h"
#include "CPair.h"
#include "CPlainTree.h"
#include "CPlainView.h"
#include "Mouse.h"

#include "tree/CProcessorTree.h"

#include <QTreeWidget>

namespace {

constexpr int nLimit = 256;
constexpr int nRowHeight = 32;
constexpr int nFullHeight = 40 * nRowHeight;

QPoint MiddleOfRow(int nRow)
{
    return { CBenchPanel::nWidth / 2, nRow * nRowHeight + nRowHeight / 2 };
}

/// The mouse goes from row to row over 40 rows: the move and the repaint that it asks for.
void BM_HoverMove(benchmark::State& state)
{
    const SProcessorAllNode node = CBenchPanel::MakeMarkedTree(nFullHeight / nRowHeight);
    CBenchPanel panel(nFullHeight);
    panel.SetTree(node);
    CPlainView plain(node, nFullHeight);

    CPair pair(state);
    int nRow = 0;
    for (auto _ : state) {
        const QPoint pos = MiddleOfRow(1 + nRow++ % 16);
        const auto fnMove = [&pos](QWidget* pViewport) {
            Mouse::Move(pViewport, pos, Qt::NoButton);
            pViewport->repaint();
        };
        pair.Time([&] { fnMove(panel.Viewport()); }, [&] { fnMove(plain.viewport()); });
        panel.Settle();
    }
}

/// One more key in the search over 256 groups and 256 processors, or one less: filter, layout and repaint. Each key changes what
/// shows, all by the names.
void BM_SearchKey(benchmark::State& state)
{
    const QStringList listText{ QStringLiteral("Processor 1"),  QStringLiteral("Processor 12"), QStringLiteral("Processor 123"),
                                QStringLiteral("Processor 12"), QStringLiteral("Processor 1"),  QStringLiteral("Processor ") };
    CBenchPanel panel;
    panel.SetTree(CBenchPanel::MakeGroupedTree(nLimit, nLimit));
    QTreeWidget plain;
    CPlainTree::Prepare(&plain);
    CPlainTree().Fill(&plain, panel.Tree());
    panel.Settle();

    CPair pair(state);
    int nKey = 0;
    for (auto _ : state) {
        const QString& strText = listText.at(nKey++ % listText.size());
        const auto fnPanel = [&] {
            panel.View().SetSearchText(strText);
            panel.Viewport()->repaint();
        };
        const auto fnPlain = [&] {
            CPlainTree::Filter(&plain, strText);
            plain.viewport()->repaint();
        };
        pair.Time(fnPanel, fnPlain);
        panel.Settle();
    }
}

/// From the press on one of 256 selected processors to the drag that hangs on the mouse.
void Drag(QWidget* pViewport)
{
    Mouse::Press(pViewport, MiddleOfRow(3));
    Mouse::Move(pViewport, MiddleOfRow(3) + QPoint(1, 1), Qt::LeftButton);
    Mouse::Move(pViewport, MiddleOfRow(4), Qt::LeftButton);
}

void SelectAllProcessors(QTreeView* pTree)
{
    const QModelIndex indexRoot = pTree->model()->index(0, 0);
    const QModelIndex indexLast = pTree->model()->index(nLimit - 1, 0, indexRoot);
    const QItemSelection selection(pTree->model()->index(0, 0, indexRoot), indexLast);
    pTree->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void BM_DragStart(benchmark::State& state)
{
    const SProcessorAllNode node = CBenchPanel::MakeMarkedTree(1 + nLimit);
    CBenchPanel panel;
    panel.SetTree(node);
    CPlainView plain(node, CBenchPanel::nDefaultHeight);
    plain.setDragEnabled(true);

    CPair pair(state);
    for (auto _ : state) {
        SelectAllProcessors(&panel.View());
        SelectAllProcessors(&plain);
        pair.Time([&] { Drag(panel.Viewport()); }, [&] { Drag(plain.viewport()); });
        Mouse::Release(panel.Viewport(), MiddleOfRow(4));
        Mouse::Release(plain.viewport(), MiddleOfRow(4));
    }
}

} // namespace

BENCHMARK(BM_HoverMove)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
BENCHMARK(BM_SearchKey)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
BENCHMARK(BM_DragStart)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
