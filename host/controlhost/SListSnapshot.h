#pragma once

#include "nodes/SProcessorAllNode.h"

/// The list at one moment: both panes. A value; its lists are shared with whoever else has them, and nobody writes
/// them.
///
/// @since 0.2
struct SListSnapshot
{
    SProcessorAllNode discovered; ///< the root of the Discovered pane
    SProcessorAllNode simulators; ///< that of the Simulator pane

    /// Counts what has changed in either pane but by folding and by reports of devices: commands, found
    /// devices, steps of a scenario, restores. Equal numbers of one host are the same list in these respects.
    quint64 nEdition = 0;
};
