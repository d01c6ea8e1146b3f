#pragma once

#include <QtGlobal>

/// The largest number of simulators that the panel asks for, those present included.
///
/// @since 0.1
constexpr qint32 nMaxSimulators = 2;

/// What to add to the Simulator pane.
///
/// @since 0.1
struct SSimulatorRequest
{
    /// Processor type, in the numbering of IPrcBasicControl::GetTypeName.
    qint32 nType = 0xFF00;

    /// How many simulators to add, 1 to nMaxSimulators.
    qint32 nCount = 0;

    /// Kind of output: 1 "1G port", 2 "5G port", 3 "10G fiber".
    qint32 nOutput = 3;
};
