#pragma once

/// What the tree paints behind the row of a node.
enum class EnRowMark
{
    None,
    Selected,  ///< filled shape
    Hovered,   ///< filled shape
    DropLine,  ///< on top of a processor: the drop goes beside it
    DropFrame, ///< around a group or the root: the drop goes into it
};

namespace RowMark {

/// The mark of a row of the kind nType, an EnNodeType but NodeInfo. A selected row gets no other mark; bHot is
/// the row under the mouse, bDragging a drag that this tree has started.
EnRowMark ForRow(int nType, bool bSelected, bool bHot, bool bDragging);

} // namespace RowMark
