#include "tree/SScrollBands.h"

#include <QRect>

SScrollBands::SScrollBands(const QSize& size, const QPoint& pos)
    : bUp(QRect(QPoint(0, 0), QPoint(size.width() - 1, 19)).contains(pos)),
      bDown(QRect(QPoint(0, size.height() - 21), QPoint(size.width() - 1, size.height() - 2)).contains(pos))
{ }
