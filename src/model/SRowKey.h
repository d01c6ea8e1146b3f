#pragma once

#include <QUuid>

class QModelIndex;

/// Which row it is, by kind and id: what is left of a row when the rows are replaced. No row, the root and
/// an information row are told apart, though their ids are not.
struct SRowKey
{
    /// The key of a row; that of no row for an invalid index.
    static SRowKey Of(const QModelIndex& index);

    bool operator==(const SRowKey& other) const;

    int nType = 0; ///< EnNodeType; 0 for no row
    QUuid idNode;  ///< null for the root; an information row has its processor's
};
