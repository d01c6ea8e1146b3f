#pragma once

#include <vector>

class QObject;

/// Knows the objects of Qt that live, by Qt's own hooks: those that were made since the first call of Start. Any thread makes and
/// destroys them.
namespace ObjectCensus {

/// Counts from now on, for as long as the process lives; once more does nothing.
void Start();

/// Addresses only: another thread may just destroy its object.
std::vector<const QObject*> GetLiving();

} // namespace ObjectCensus
