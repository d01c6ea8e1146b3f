#pragma once

#include "play/SScene.h"

#include <vector>

/// What a user does with the parts around the tree: tool bar, tabs, search row.
namespace BarGestures {

std::vector<SVerb> GetVerbs();

/// The button of the tool bar with that tool tip. False when it is disabled.
bool PressButton(SScene& scene, const QString& strToolTip);

} // namespace BarGestures
