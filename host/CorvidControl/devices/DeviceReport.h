#pragma once

#include "nodes/SProcessorNode.h"

/// What devices report of themselves, in a form that every list file takes. For any thread.
namespace DeviceReport {

/// Returns device with what no list could hold made harmless: a device may call itself what it likes, and must
/// not keep the list from being saved. A name of which nothing can be shown becomes the address.
SProcessorNode Mend(const SProcessorNode& device);

/// Returns recorded with what report says of online state, role and project.
SProcessorNode TakeState(const SProcessorNode& recorded, const SProcessorNode& report);

} // namespace DeviceReport
