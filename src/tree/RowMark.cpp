#include "tree/RowMark.h"

#include "nodes/EnNodeType.h"

#include <QtGlobal>

EnRowMark RowMark::ForRow(int nType, bool bSelected, bool bHot, bool bDragging)
{
    Q_ASSERT(nType != NodeInfo);
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
