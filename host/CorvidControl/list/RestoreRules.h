#pragma once

#include "CorvidControl/list/SFault.h"
#include "CorvidControl/list/SListLimits.h"
#include "CorvidControl/list/SListRestore.h"

class CPanes;

/// What a list takes of a restore. Pure functions, for any thread.
namespace RestoreRules {

/// Why the panes cannot become the result of restore: limits, addresses, a processor that would go while it answers and runs
/// strProject. What is over a limit already may stay so.
SFault FindFault(const SListRestore& restore, const CPanes& panes, const SListLimits& limits, const QString& strProject);

} // namespace RestoreRules
