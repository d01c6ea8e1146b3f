#pragma once

#include "contract/report/CContractRun.h"

class QIODevice;

/// What a run prints and writes.
namespace Reports {

/// One line a promise, with the story below one that is not kept, and the sums.
QString BuildText(const SContractOptions& options, const std::vector<SResult>& vecResult);

/// The same as JUnit XML, for device, which is open. A recommended promise that is not kept is skipped there, not failed.
void WriteJUnit(QIODevice& device, const SContractOptions& options, const std::vector<SResult>& vecResult);

} // namespace Reports
