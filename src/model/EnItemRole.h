#pragma once

#include <Qt>

/// What a row knows, all on column 0. The numbers stay: the host's tools read the rows by them.
enum EnItemRole
{
    RoleNodeId = Qt::UserRole + 1,     ///< QUuid: the node's id; an information row has its processor's, the root the null id
    RoleNodeType = Qt::UserRole + 2,   ///< int: EnNodeType
    RoleNodeItem = Qt::UserRole + 4,   ///< SPrcNodeItem: where the last paint put the marks of a processor row
    RoleFirstEdit = Qt::UserRole + 10, ///< bool: an editor is open in which nothing was typed yet
    RoleToolTip = Qt::UserRole + 100,  ///< QString: the full text of a row, as its last paint left it
};
