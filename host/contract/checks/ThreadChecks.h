#pragma once

#include "contract/SOutcome.h"

class CSite;

/// Scripts that call from many threads.
namespace ThreadChecks {

SOutcome TryThreads(CSite& site);
SOutcome TryPaneWhileHeld(CSite& site);

} // namespace ThreadChecks
