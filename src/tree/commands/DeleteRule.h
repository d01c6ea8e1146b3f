#pragma once

#include "tree/commands/EnDeleteQuestion.h"

/// Whether nodes may be deleted, and what the user is asked first.
namespace DeleteRule {

/// True while nothing may be deleted: the list is locked, or a processor of the selection, as the control
/// library reports it, is active and in use. Asks the library at each call.
bool IsBlocked();

/// The question for a choice of nodes. The flags say which kinds it holds; at least one of them is true.
EnDeleteQuestion GetQuestion(bool bProcessor, bool bFilledGroup, bool bEmptyGroup);

} // namespace DeleteRule
