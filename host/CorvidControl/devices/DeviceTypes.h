#pragma once

#include <QString>

/// The processor types that exist. For any thread.
namespace DeviceTypes {

constexpr qint32 nStandard = 12; ///< of what a scenario adds or finds

/// True for the four that have a name.
bool IsKnown(qint32 nType);

/// Display name; "Type 99" for a type that is unknown.
QString GetName(qint32 nType);

} // namespace DeviceTypes
