#include "CApplicationFont.h"
#include "CBenchPanel.h"
#include "CPair.h"
#include "CPlainView.h"

#include "Kestrel/theme/ThemeFont.h"

#include <QFontDatabase>

namespace {

constexpr int nRows = 40;
constexpr int nHeight = nRows * 32;

/// 40 rows painted whole, every processor with its online mark and its Primary or Backup mark.
void Repaint(benchmark::State& state, const QFont& font)
{
    const CApplicationFont applicationFont(font);
    const SProcessorAllNode node = CBenchPanel::MakeMarkedTree(nRows);
    CBenchPanel panel(nHeight);
    panel.SetTree(node);
    CPlainView plain(node, nHeight);

    CPair pair(state);
    for (auto _ : state) {
        pair.Time([&panel] { panel.Viewport()->repaint(); }, [&plain] { plain.viewport()->repaint(); });
    }
}

void BM_RepaintInThemeFont(benchmark::State& state)
{
    Repaint(state, ThemeFont::Get());
}

void BM_RepaintInPlatformFont(benchmark::State& state)
{
    Repaint(state, QFontDatabase::systemFont(QFontDatabase::GeneralFont));
}

} // namespace

BENCHMARK(BM_RepaintInThemeFont)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
BENCHMARK(BM_RepaintInPlatformFont)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(CPair::GetCount());
