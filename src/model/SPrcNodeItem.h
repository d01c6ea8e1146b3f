#pragma once

#include <QMetaType>
#include <QRectF>

/// What painting leaves in the item of a processor's row, under RoleNodeItem: where its marks are, in
/// the view's coordinates, for the tool tips of the tree. As old as the row's last paint; a row that
/// was never painted has none.
struct SPrcNodeItem
{
    QRectF rcFailover;     ///< slot of the Primary or Backup mark; width 0 without role or project
    QRectF rcChief;        ///< the Chief mark; all zero when it isn't drawn
    bool bPrimary = false; ///< the role is Primary, whether or not its mark is drawn
    bool bBackup = false;  ///< the role is Backup, whether or not its mark is drawn
    bool bChief = false;   ///< the Chief mark was drawn
};

bool operator==(const SPrcNodeItem& a, const SPrcNodeItem& b);
bool operator!=(const SPrcNodeItem& a, const SPrcNodeItem& b);

Q_DECLARE_METATYPE(SPrcNodeItem)

/// Makes the type known by its name, and its values comparable inside a QVariant. Without the second,
/// equal values differ by their padding bytes, and each paint would ask for the next. To be called before
/// the first paint, which asserts it; further calls do nothing.
void RegisterPrcNodeItem();
