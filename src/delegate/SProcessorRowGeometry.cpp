#include "delegate/SProcessorRowGeometry.h"

#include "delegate/RowLook.h"
#include "nodes/SProcessorNode.h"

namespace {

// The place of the dot may end in .5, and is worked out in single precision.
QRectF DotRect(const QRect& rcRow)
{
    const float fTop = static_cast<float>(rcRow.height() - RowLook::nDotSize) * 0.5F + static_cast<float>(rcRow.top());
    return { qreal(rcRow.left() + RowLook::nDotIndent), static_cast<qreal>(fTop), qreal(RowLook::nDotSize),
             qreal(RowLook::nDotSize) };
}

QRectF GlowRect(const QRectF& rcDot)
{
    return rcDot.adjusted(-RowLook::nGlowMargin, -RowLook::nGlowMargin, RowLook::nGlowMargin, RowLook::nGlowMargin);
}

QRectF FailoverRect(const QRect& rcRow, const SProcessorNode& node)
{
    const int nTop = RowLook::CentredTop(rcRow, RowLook::nMarkSize);
    if (node.nFailover == 0 || node.strProject.isEmpty()) {
        return { qreal(rcRow.right()), qreal(nTop), 0, qreal(RowLook::nMarkSize) };
    }
    return { qreal(rcRow.right() - RowLook::nFirstSlot), qreal(nTop), qreal(RowLook::nMarkSize), qreal(RowLook::nMarkSize) };
}

QRectF ChiefRect(const QRect& rcRow, const SProcessorNode& node, qreal fTop)
{
    const int nSlot = node.nFailover != 0 ? RowLook::nSecondSlot : RowLook::nFirstSlot;
    return { qreal(rcRow.right() - nSlot), fTop, qreal(RowLook::nMarkSize), qreal(RowLook::nMarkSize) };
}

// The room kept free on the right depends on which marks there are, not on where they are.
QRectF NameRect(const QRect& rcRow, const QRectF& rcDot, const QRectF& rcFailover, bool bChief)
{
    const qreal fLeft = rcDot.x() + rcDot.width() + RowLook::nNameGap;
    const qreal fBeforeName = RowLook::nDotIndent + rcDot.width() + RowLook::nNameGap;
    const qreal fMarks = rcFailover.width() + (bChief ? RowLook::nMarkSize : 0);
    const qreal fWidth = rcRow.width() - fBeforeName - fMarks - RowLook::nNameRightMargin;
    return { fLeft, qreal(RowLook::CentredTop(rcRow, RowLook::nTextHeight)), fWidth, qreal(RowLook::nTextHeight) };
}

} // namespace

SProcessorRowGeometry::SProcessorRowGeometry(const QRect& rcRow, const SProcessorNode& node, bool bChief)
    : rcDot(DotRect(rcRow)), rcGlow(GlowRect(rcDot)), rcFailover(FailoverRect(rcRow, node)),
      rcChief(bChief ? ChiefRect(rcRow, node, rcFailover.y()) : QRectF()), rcName(NameRect(rcRow, rcDot, rcFailover, bChief))
{ }
