#pragma once

#include <QList>
#include <QRect>

/// Where a window goes that is to come back where it was.
namespace WindowPlace {

/// rcWindow as near as it can be on one of the screens, whole: on the one of which it covers most, else on the first. Made
/// smaller where the screen is. Unchanged where there is no screen.
QRect Fit(const QRect& rcWindow, const QList<QRect>& listScreen);

} // namespace WindowPlace
