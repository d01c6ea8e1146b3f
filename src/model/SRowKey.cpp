#include "model/SRowKey.h"

#include "model/EnItemRole.h"

#include <QModelIndex>

SRowKey SRowKey::Of(const QModelIndex& index)
{
    SRowKey key;
    key.nType = index.data(RoleNodeType).toInt();
    key.idNode = index.data(RoleNodeId).toUuid();
    return key;
}

bool SRowKey::operator==(const SRowKey& other) const
{
    return nType == other.nType && idNode == other.idNode;
}
