#pragma once

#include "play/SScene.h"

#include <QString>

#include <vector>

/// All that a step can be.
namespace Verbs {

/// Null for an unknown verb.
const SVerb* Find(const QString& strName);

/// Each as often as it is to come up.
std::vector<QString> GetWeighted();

} // namespace Verbs
