#pragma once

#include <QModelIndex>
#include <QUuid>
#include <QVariant>

/// What the delegate reads from a row and writes into it.
namespace RowData {

/// The id of the row's node; null when there is none, or none that can be read.
QUuid NodeId(const QModelIndex& index);

/// Writes through the row's model; nothing for an index that is invalid.
void Write(const QModelIndex& index, const QVariant& value, int nRole);

} // namespace RowData
