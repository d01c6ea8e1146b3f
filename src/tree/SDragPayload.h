#pragma once

#include <QModelIndexList>

class QMimeData;

/// What a drag of rows carries. The nodes themselves are not in it: the target reads its own selection.
struct SDragPayload
{
    /// The payload of a drag of these rows.
    static SDragPayload ForRows(const QModelIndexList& listRow);

    /// True when data is a drag of rows at all.
    static bool IsIn(const QMimeData* pData);

    /// Reads the payload. One byte of value 1 may be dropped; anything else, also what is broken, may not.
    static SDragPayload FromMime(const QMimeData* pData);

    /// New data, owned by the caller.
    QMimeData* ToMime() const;

    /// Every selected row may be moved; false when a group or the root is among them.
    bool bAllow = false;
};
