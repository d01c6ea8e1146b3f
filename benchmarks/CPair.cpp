#include "CPair.h"

#include <valgrind/valgrind.h>

namespace {

constexpr int nTimed = 51;
constexpr int nCounted = 9;

} // namespace

CPair::CPair(benchmark::State& stateIn) : state(stateIn) { }

CPair::~CPair()
{
    state.counters["ratio"] = Median(vecQuotient);
    state.counters["plain_ms"] = samplesPlain.Median() * 1e3;
}

int CPair::GetCount()
{
    return RUNNING_ON_VALGRIND ? nCounted : nTimed;
}

double CPair::GetPanelMedian() const
{
    return samplesPanel.Median();
}

void CPair::Add(double fPanel, double fPlain)
{
    state.SetIterationTime(fPanel);
    vecQuotient.push_back(fPanel / fPlain);
}
