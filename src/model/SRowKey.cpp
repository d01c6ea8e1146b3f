#include "model/SRowKey.h"

#include "model/RowValue.h"

#include <QModelIndex>

SRowKey SRowKey::Of(const QModelIndex& index)
{
    SRowKey key;
    key.nType = RowValue::NodeType(index);
    key.idNode = RowValue::NodeId(index);
    return key;
}

bool SRowKey::operator==(const SRowKey& other) const
{
    return nType == other.nType && idNode == other.idNode;
}
