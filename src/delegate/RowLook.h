#pragma once

#include <QColor>
#include <QRect>
#include <QString>

/// The fixed look of the rows: sizes, places, colours and icons, whoever lays out, paints or drags them. It
/// follows neither palette nor theme: there is one form, made for a dark ground. Lengths are pixels.
///
/// Includes nothing of the panel, so every folder may read it.
namespace RowLook {

// Rows
constexpr int nRowHeight = 32;
constexpr int nInfoRowHeight = 92;
constexpr int nIndentation = 15; ///< from a row to its children
constexpr int nFontPixels = 12;
constexpr int nTextHeight = 16; ///< of the name of a node

/// The top of something nHeight high that is centred in the row.
inline int CentredTop(const QRect& rcRow, int nHeight)
{
    return (rcRow.height() - nHeight) / 2 + rcRow.top();
}

// The row of a group or of the root
constexpr int nGroupIconSize = 16;
constexpr int nGroupTextIndent = 19;
constexpr int nGroupTextRightMargin = 10;

// The row of a processor
constexpr int nDotSize = 7;
constexpr int nDotIndent = 1;
constexpr int nGlowMargin = 4; ///< around the dot
constexpr int nNameGap = 4;    ///< between the dot and the name
constexpr int nNameRightMargin = 12;
constexpr int nMarkSize = 14;
constexpr int nFirstSlot = 22;  ///< left edge of the last mark, from the right edge of the row
constexpr int nSecondSlot = 40; ///< left edge of the mark before it

// The information row
constexpr int nInfoFirstLine = 5; ///< top of the first line
constexpr int nInfoLineStep = 22; ///< from the top of a line to that of the next one
constexpr int nInfoLineHeight = 15;
constexpr int nInfoRightMargin = 14;
constexpr int nProjectLabelWidth = 45; ///< what the label takes of the line of the project
constexpr int nIdLabelWidth = 32;      ///< what the label takes of the line of the id

// The editor of a name
constexpr int nEditorHeight = 24;
constexpr int nGroupEditorIndent = 18;
constexpr int nGroupEditorRightMargin = 7;
constexpr int nProcessorEditorIndent = 9;
constexpr int nProcessorEditorRightMargin = 6;

// The shapes behind the rows
constexpr int nShapeRightMargin = 6;
constexpr int nShapeTopGap = 1; ///< above the shape of a node
constexpr qreal fShapeRadius = 5;
constexpr int nDropLineHeight = 2;
constexpr qreal fCardOverlap = 5; ///< how far the card of an information row reaches into the row above
constexpr QRgb rgbSelected = qRgb(0x5F, 0x64, 0x6D);
constexpr QRgb rgbHovered = qRgb(0x42, 0x46, 0x4D);
constexpr QRgb rgbDrop = qRgb(0xED, 0x81, 0x1D);
constexpr QRgb rgbHoveredCard = qRgb(0x26, 0x28, 0x2C);
constexpr QRgb rgbSelectedCard = qRgb(0x2F, 0x32, 0x37);

// The picture of a drag
constexpr int nDragMargin = 6; ///< left out at both sides of the tree
constexpr qreal fDragOpacity = 0.5;
constexpr QRgb rgbTreeGround = qRgb(0x1C, 0x1E, 0x21); ///< the host's style sheet has the same; both have to agree

// The bars and menus of the tree
constexpr int nBarGap = 1;          ///< between a scroll bar and the edge of the tree
constexpr int nBarMinimumEdge = 10; ///< a tree with a shorter edge shows no bars
constexpr int nMenuMinimumWidth = 180;
constexpr int nSubMenuMinimumWidth = 100;

// Text
constexpr QRgb rgbText = qRgb(186, 190, 196);
constexpr QRgb rgbTextHover = qRgb(227, 229, 232);
constexpr QRgb rgbTextSelected = qRgb(255, 255, 255);

/// The glow under the dot of a processor that is online, from its middle outwards.
constexpr QRgb rgbaGlowMiddle = qRgba(56, 252, 76, 120);
constexpr QRgb rgbaGlowFading = qRgba(56, 252, 76, 20);
constexpr QRgb rgbaGlowEnd = qRgba(56, 252, 76, 0);
constexpr qreal fGlowFading = 0.7; ///< where rgbaGlowFading is, from the middle (0) to the end (1)
constexpr qreal fGlowRadius = 7;

// The icons. The host brings these files; one that is missing is drawn as nothing.
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
