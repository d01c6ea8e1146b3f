#pragma once

class QJsonArray;
class QString;

/// What a scenario may hold for Kestrel, see docs/scenarios.md.
namespace MarkFaults {

/// The first fault of the marks of a scenario, with its number, from 1; empty when there is none. The library has
/// checked that each is an object with a time.
QString FindFault(const QJsonArray& marks);

} // namespace MarkFaults
