#include "delegate/EditorGeometry.h"

#include "delegate/RowLook.h"
#include "nodes/EnNodeType.h"

namespace {

QRect CentredRect(const QRect& rcRow, int nIndent, int nRightMargin)
{
    const int nTop = RowLook::CentredTop(rcRow, RowLook::nEditorHeight);
    return QRect(QPoint(rcRow.left() + nIndent, nTop), QPoint(rcRow.right() - nRightMargin, nTop + RowLook::nEditorHeight - 1));
}

} // namespace

QRect EditorGeometry::EditorRect(int nNodeType, const QRect& rcRow)
{
    switch (nNodeType) {
    case NodeGroup:
        return CentredRect(rcRow, RowLook::nGroupEditorIndent, RowLook::nGroupEditorRightMargin);
    case NodeProcessor:
        return CentredRect(rcRow, RowLook::nProcessorEditorIndent, RowLook::nProcessorEditorRightMargin);
    default:
        return {};
    }
}
