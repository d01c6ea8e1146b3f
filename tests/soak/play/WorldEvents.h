#pragma once

#include "play/SScene.h"

#include <vector>

/// What happens to the library: its devices, what others do to its list, and what goes wrong.
namespace WorldEvents {

std::vector<SVerb> GetVerbs();

} // namespace WorldEvents
