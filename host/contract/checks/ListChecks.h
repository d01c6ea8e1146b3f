#pragma once

#include "contract/SOutcome.h"

class CSite;

/// Scripts about single calls.
namespace ListChecks {

SOutcome TryObjects(CSite& site);
SOutcome TryReservedIPs(CSite& site);
SOutcome TryListFilePath(CSite& site);
SOutcome TryRefresh(CSite& site);
SOutcome TrySimulators(CSite& site);
SOutcome TryAddProcessor(CSite& site);
SOutcome TryTypeName(CSite& site);
SOutcome TrySimulatorCount(CSite& site);
SOutcome TryGroupIndex(CSite& site);
SOutcome TryProcessorIPs(CSite& site);
SOutcome TryNodeType(CSite& site);
SOutcome TryBusy(CSite& site);
SOutcome TryProject(CSite& site);

} // namespace ListChecks
