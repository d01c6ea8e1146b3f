#pragma once

#include "play/SScene.h"

#include <vector>

/// What a user does with the rows of the tree.
namespace RowGestures {

std::vector<SVerb> GetVerbs();

} // namespace RowGestures
