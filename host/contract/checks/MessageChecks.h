#pragma once

#include "contract/SOutcome.h"

class CSite;

/// Scripts about observers.
namespace MessageChecks {

SOutcome TryFirstMessage(CSite& site);
SOutcome TryDetach(CSite& site);
SOutcome TryPost(CSite& site);
SOutcome TryReadDuringNotify(CSite& site);
SOutcome TryCallInNotify(CSite& site);

} // namespace MessageChecks
