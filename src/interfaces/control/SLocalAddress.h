#pragma once

#include <QtGlobal>

/// The address under which this machine reaches its processors.
///
/// @since 0.1
struct SLocalAddress
{
    /// IPv4 address in host order, the form of QHostAddress(quint32).
    quint32 nIP = 0;
};
