#pragma once

#include "CorvidControl/list/SFault.h"

/// The words of the library's log for what was refused. For any thread.
namespace FaultText {

/// In a few words; empty for no fault.
QString Build(const SFault& fault);

} // namespace FaultText
