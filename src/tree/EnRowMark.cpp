#include "tree/EnRowMark.h"

#include "nodes/EnNodeType.h"

EnRowMark RowMark(int nType, bool bSelected, bool bHot, bool bDragging)
{
    if (bSelected) {
        return EnRowMark::Selected;
    }
    if (!bHot) {
        return EnRowMark::None;
    }
    if (!bDragging) {
        return EnRowMark::Hovered;
    }
    return nType == NodeProcessor ? EnRowMark::DropLine : EnRowMark::DropFrame;
}
