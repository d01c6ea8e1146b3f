#pragma once

#include <vector>

class QObject;

/// Knows the objects of Qt that live, by Qt's own hooks, from the start of the program on. Any thread makes and destroys them.
namespace ObjectCensus {

/// Addresses only: another thread may just destroy its object.
std::vector<const QObject*> GetLiving();

} // namespace ObjectCensus
