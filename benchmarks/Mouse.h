#pragma once

#include <Qt>

class QPoint;
class QWidget;

/// Mouse events as a viewport gets them from its window, on this thread.
namespace Mouse {

void Press(QWidget* pViewport, const QPoint& pos);
void Move(QWidget* pViewport, const QPoint& pos, Qt::MouseButtons buttons);
void Release(QWidget* pViewport, const QPoint& pos);

} // namespace Mouse
