#include "delegate/SProcessorRowGeometry.h"

#include "nodes/SProcessorNode.h"

namespace {

constexpr int nDotSize = 7;
constexpr int nGlowMargin = 4;
constexpr int nMarkSize = 14;
constexpr int nNameHeight = 16;
constexpr int nFirstSlot = 22; // of a mark, from the right edge
constexpr int nSecondSlot = 40;

// The place of the dot may end in .5, and is worked out in single precision.
QRectF DotRect(const QRect& rcRow)
{
    const int nHeight = rcRow.bottom() - rcRow.top();
    const float fTop = static_cast<float>(nHeight - 6) * 0.5F + static_cast<float>(rcRow.top());
    return { qreal(rcRow.left() + 1), static_cast<qreal>(fTop), qreal(nDotSize), qreal(nDotSize) };
}

QRectF GlowRect(const QRectF& rcDot)
{
    return rcDot.adjusted(-nGlowMargin, -nGlowMargin, nGlowMargin, nGlowMargin);
}

QRectF FailoverRect(const QRect& rcRow, const SProcessorNode& node)
{
    const int nTop = (rcRow.bottom() - rcRow.top() - 13) / 2 + rcRow.top();
    if (node.nFailover == 0 || node.strProject.isEmpty()) {
        return { qreal(rcRow.right()), qreal(nTop), 0, qreal(nMarkSize) };
    }
    return { qreal(rcRow.right() - nFirstSlot), qreal(nTop), qreal(nMarkSize), qreal(nMarkSize) };
}

QRectF ChiefRect(const QRect& rcRow, const SProcessorNode& node, qreal fTop)
{
    const int nSlot = node.nFailover != 0 ? nSecondSlot : nFirstSlot;
    return { qreal(rcRow.right() - nSlot), fTop, qreal(nMarkSize), qreal(nMarkSize) };
}

// What is kept free on the right is fixed; it does not move with the places of the marks, on purpose.
QRectF NameRect(const QRect& rcRow, const QRectF& rcDot, const QRectF& rcFailover, bool bChief)
{
    const int nTop = (rcRow.bottom() - rcRow.top() - 15) / 2 + rcRow.top();
    const qreal fWidth = rcRow.width() - rcFailover.width() - rcDot.width() - 5 - 12 - (bChief ? nMarkSize : 0);
    return { rcDot.x() + rcDot.width() + 4, qreal(nTop), fWidth, qreal(nNameHeight) };
}

} // namespace

SProcessorRowGeometry::SProcessorRowGeometry(const QRect& rcRow, const SProcessorNode& node, bool bChief)
    : rcDot(DotRect(rcRow)), rcGlow(GlowRect(rcDot)), rcFailover(FailoverRect(rcRow, node)),
      rcChief(bChief ? ChiefRect(rcRow, node, rcFailover.y()) : QRectF()), rcName(NameRect(rcRow, rcDot, rcFailover, bChief))
{ }
