#pragma once

#include "play/SScene.h"

#include <vector>

/// What happens to the library: its devices, what others do to its list, and what goes wrong.
namespace WorldEvents {

std::vector<SVerb> GetVerbs();

/// The next thing follows from what has happened: a device that restarts answers again, a storm goes on.
void GoOn(SScene& scene);

} // namespace WorldEvents
