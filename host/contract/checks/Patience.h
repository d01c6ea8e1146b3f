#pragma once

#include <chrono>
#include <functional>

/// Waiting by a steady clock.
namespace Patience {

/// Asks again every few milliseconds; false when time has passed.
bool Await(const std::function<bool()>& condition, std::chrono::milliseconds time);

/// How long a call took.
std::chrono::milliseconds Measure(const std::function<void()>& call);

} // namespace Patience
