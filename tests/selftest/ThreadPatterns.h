#pragma once

#include "RacePattern.h"

/// Threads, jobs of the pool, signals and calls that are delivered on another thread.
namespace ThreadPatterns {

RacePatterns All();

} // namespace ThreadPatterns
