#include "Kestrel/WindowPlace.h"

#include <algorithm>

namespace {

qint64 Covered(const QRect& rcWindow, const QRect& rcScreen)
{
    const QRect rc = rcWindow & rcScreen;
    return rc.isEmpty() ? 0 : qint64(rc.width()) * rc.height();
}

} // namespace

QRect WindowPlace::Fit(const QRect& rcWindow, const QList<QRect>& listScreen)
{
    if (listScreen.isEmpty()) {
        return rcWindow;
    }
    const QRect& rcScreen
        = *std::max_element(listScreen.begin(), listScreen.end(), [&rcWindow](const QRect& rcOne, const QRect& rcOther) {
              return Covered(rcWindow, rcOne) < Covered(rcWindow, rcOther);
          });
    QRect rc(rcWindow.topLeft(), rcWindow.size().boundedTo(rcScreen.size()));
    rc.moveRight(qMin(rc.right(), rcScreen.right()));
    rc.moveBottom(qMin(rc.bottom(), rcScreen.bottom()));
    rc.moveLeft(qMax(rc.left(), rcScreen.left()));
    rc.moveTop(qMax(rc.top(), rcScreen.top()));
    return rc;
}
