#pragma once

#include "RacePattern.h"

/// Locks, conditions and semaphores.
namespace LockPatterns {

RacePatterns All();

} // namespace LockPatterns
