#pragma once

#include "Patience.h"

#include <QString>

#include <functional>

/// Whether a process comes to hold more and more.
namespace Flatness {

/// Runs fnRound so often in five blocks and compares what the process holds after each but the first, in which caches fill.
/// Empty when nothing has grown, else "12 objects, 3 timers". Prints the figures. What is on its way out at the end, as a thread
/// that has done its work, gets nPatienceMs for it; a growth must come twice, in twice as many rounds. GUI thread.
QString FindGrowth(int nRounds, const std::function<void()>& fnRound, int nPatienceMs = nPatience);

/// nYears with PTV_FLAT_YEARS in the environment, the rounds of years of use; without it nDay, enough for a growth with each
/// round to show.
int CountRounds(int nYears, int nDay);

} // namespace Flatness
