#pragma once

/// The kind of a node, and of the row that shows it.
enum EnNodeType
{
    NodeAll = 1,       ///< the root of a pane
    NodeGroup = 2,     ///< a group
    NodeProcessor = 3, ///< a processor
    NodeInfo = 4,      ///< the information row under a processor; only ever a row, never a record
};
