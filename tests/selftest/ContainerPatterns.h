#pragma once

#include "RacePattern.h"

/// What Qt's containers do to their elements.
namespace ContainerPatterns {

RacePatterns All();

} // namespace ContainerPatterns
