#pragma once

#include <QColor>
#include <QString>

/// The fixed look of what stands on the rows. It follows neither palette nor theme: there is one form,
/// made for a dark ground.
namespace RowLook {

constexpr int nFontPixels = 12;

constexpr QRgb rgbText = qRgb(186, 190, 196);
constexpr QRgb rgbTextHover = qRgb(227, 229, 232);
constexpr QRgb rgbTextSelected = qRgb(255, 255, 255);

/// The glow under the dot of a processor that is online, from its middle outwards.
constexpr QRgb rgbaGlowMiddle = qRgba(56, 252, 76, 120);
constexpr QRgb rgbaGlowFading = qRgba(56, 252, 76, 20);
constexpr QRgb rgbaGlowEnd = qRgba(56, 252, 76, 0);
constexpr qreal fGlowFading = 0.7; ///< where rgbaGlowFading stands between middle (0) and end (1)
constexpr qreal fGlowRadius = 7;

// The host brings these files; one that is missing is drawn as nothing.
inline QString IconDot(bool bOnline)
{
    return bOnline ? QStringLiteral(":/image/treeView/online/online.svg") : QStringLiteral(":/image/treeView/online/offline.svg");
}

inline QString IconFailover(bool bPrimary)
{
    return bPrimary ? QStringLiteral(":/image/treeView/failover/primary.svg")
                    : QStringLiteral(":/image/treeView/failover/backup.svg");
}

inline QString IconChief()
{
    return QStringLiteral(":/image/treeView/chief/chief.svg");
}

/// A group with a Chief keeps its icon when it is selected.
inline QString IconGroup(bool bHasChief, bool bSelected)
{
    if (bHasChief) {
        return QStringLiteral(":/image/treeView/groupNode/group_hasChief.svg");
    }
    return bSelected ? QStringLiteral(":/image/treeView/groupNode/group_selected.svg")
                     : QStringLiteral(":/image/treeView/groupNode/group_normal.svg");
}

} // namespace RowLook
