#pragma once

#include "CSamples.h"

#include <benchmark/benchmark.h>

/// One task, done by the panel and by plain Qt in turn: what else the machine does comes to both. Its end reports the median of
/// the quotients of all pairs, and the median of plain Qt's times.
class CPair
{
public:
    explicit CPair(benchmark::State& stateIn);
    ~CPair();
    CPair(const CPair&) = delete;
    CPair& operator=(const CPair&) = delete;

    /// How many pairs a run takes: fewer where instructions are counted, which hardly differ.
    static int GetCount();

    /// First the panel, then plain Qt; both on this thread.
    template <typename Panel, typename Plain> void Time(Panel fnPanel, Plain fnPlain)
    {
        Add(samplesPanel.Time(fnPanel), samplesPlain.Time(fnPlain));
    }

    /// The same with a panel whose work is not all on this thread. fnSettle stands between the two and is not measured.
    template <typename Panel, typename Settle, typename Plain> void TimeByWall(Panel fnPanel, Settle fnSettle, Plain fnPlain)
    {
        const double fPanel = samplesPanel.TimeByWall(fnPanel);
        fnSettle();
        Add(fPanel, samplesPlain.TimeByWall(fnPlain));
    }

    /// Seconds.
    double GetPanelMedian() const;

private:
    void Add(double fPanel, double fPlain);

    benchmark::State& state;
    CSamples samplesPanel{ "panel" };
    CSamples samplesPlain{ "plain" };
    std::vector<double> vecQuotient;
};
