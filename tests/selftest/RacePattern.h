#pragma once

#include <functional>
#include <map>
#include <string>

using FnPattern = void (*)();
using RacePatterns = std::map<std::string, FnPattern>;

/// What the patterns of sharing data between threads have in common.
namespace RacePattern {

constexpr int nRounds = 200;

extern int nShared;

/// Runs fn on two threads that nothing else orders.
void Twice(const std::function<void()>& fn);

void Repeat(const std::function<void()>& fn);

} // namespace RacePattern
