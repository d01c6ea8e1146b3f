#pragma once

#include <QString>

/// The processor types that exist.
class CDeviceTypes
{
public:
    static constexpr qint32 nStandard = 12;

    static bool IsKnown(qint32 nType);

    /// Display name; "Type 99" for a type that is unknown.
    static QString GetName(qint32 nType);

    CDeviceTypes() = delete;
};
