#include "tree/SScrollBands.h"

#include <QRect>

namespace {

constexpr int nBandHeight = 20; // pixels
constexpr int nBottomGap = 1;

} // namespace

SScrollBands::SScrollBands(const QSize& size, const QPoint& pos)
    : bUp(QRect(0, 0, size.width(), nBandHeight).contains(pos)),
      bDown(QRect(0, size.height() - nBandHeight - nBottomGap, size.width(), nBandHeight).contains(pos))
{ }
