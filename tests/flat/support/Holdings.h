#pragma once

#include "SHoldings.h"

#include <QString>

/// Measures what this process holds. GUI thread, outside of any handler.
namespace Holdings {

/// Of now, after jobs, posted events and deletions that wait have been dealt with.
SHoldings Take();

/// What of it has become more: "12 objects, 3 timers", memory only when it is more than nBytesAllowed. Empty when nothing has.
QString DescribeGrowth(const SHoldings& before, const SHoldings& after, qint64 nBytesAllowed);

/// All of it, for people to read.
QString Describe(const SHoldings& holdings);

} // namespace Holdings
