#pragma once

#include "nodes/SProcessorNode.h"

/// What devices say of themselves, in a form that every list file takes.
namespace DeviceReport {

/// device with what no list could hold made harmless: a device may call itself what it likes, and must
/// not keep the list from being saved.
SProcessorNode Mend(const SProcessorNode& device);

} // namespace DeviceReport
