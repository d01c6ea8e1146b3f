#pragma once

#include "story/Story.h"

#include <chrono>
#include <functional>

/// Stories out of a seed, and the way in which one that went wrong becomes short.
namespace StoryMaker {

/// The same for the same seed and verbs. A verb that stands there several times comes up so much more often.
StorySteps Build(quint32 nSeed, int nSteps, const std::vector<QString>& vecVerb);

/// The shortest story found in that time that still goes wrong: steps are left out, then numbers become smaller.
StorySteps Shrink(const StorySteps& vecStep, std::chrono::seconds time, const std::function<bool(const StorySteps&)>& goesWrong);

} // namespace StoryMaker
