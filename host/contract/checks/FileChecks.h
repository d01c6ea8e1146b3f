#pragma once

#include "contract/SOutcome.h"

class CSite;

/// Scripts about list files, and the parts that they run in other processes.
namespace FileChecks {

SOutcome TryRoundTrip(CSite& site);
SOutcome TryResultOne(CSite& site);
SOutcome TrySecondProcess(CSite& site);
SOutcome TryInvalidFiles(CSite& site);
SOutcome TryFailedImport(CSite& site);
SOutcome TryTooMany(CSite& site);

/// Changes the list that another process works on, exports it to its own place and ends. The reason is what
/// ExportList has answered.
SOutcome BeSecondProcess(CSite& site);

/// The reason is the names of the groups that it finds, a tab between them.
SOutcome BeThirdProcess(CSite& site);

/// Exports a list with more processors than a panel adds to the file of the attempt. The reason is their number.
SOutcome ExportMany(CSite& site);

} // namespace FileChecks
