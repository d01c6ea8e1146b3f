#pragma once

#include <QModelIndex>
#include <QUuid>
#include <QVariant>

/// What a row of the tree knows, by its index: the one place that reads the kind and the id under their roles.
namespace RowValue {

/// The kind of the row, an EnNodeType; 0 for an invalid index.
int NodeType(const QModelIndex& index);

/// The id of the row's node. Null for the root, for an invalid index and for a value that is no id.
QUuid NodeId(const QModelIndex& index);

/// Writes a value under nRole, an EnItemRole or a role of Qt, through the row's model; nothing for an index that is
/// invalid. GUI thread.
void Write(const QModelIndex& index, const QVariant& value, int nRole);

} // namespace RowValue
