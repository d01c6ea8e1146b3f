#pragma once

#include <QModelIndex>
#include <QUuid>

/// Where processors go that are dropped onto a row.
struct SDropTarget
{
    /// The rule: onto a group, into it; onto the root row, out of any group; onto a processor, to where
    /// that processor is. Nowhere for an information row and for no row.
    static SDropTarget ForRow(const QModelIndex& indexRow);

    bool bValid = false;    ///< there is a target; false: nothing is moved
    QModelIndex indexGroup; ///< row of the group, which is to be opened; invalid for the root
    QUuid idGroup;          ///< null for the root
};
