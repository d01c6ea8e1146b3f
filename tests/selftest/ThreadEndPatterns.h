#pragma once

#include "RacePattern.h"

/// What runs at a thread's end: destructors and slots behind QThread::finished.
namespace ThreadEndPatterns {

RacePatterns All();

} // namespace ThreadEndPatterns
