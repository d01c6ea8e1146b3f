#pragma once

#include <QUuid>

class QModelIndex;

/// Identifies a row by kind and id, which outlast a replacement of the rows. No row and the root
/// share an id but not a key, and so do a processor and its information row.
struct SRowKey
{
    /// The key of a row; that of no row for an invalid index.
    static SRowKey Of(const QModelIndex& index);

    bool operator==(const SRowKey& other) const;

    int nType = 0; ///< EnNodeType; 0 for no row
    QUuid idNode;  ///< null for the root; an information row has its processor's
};
