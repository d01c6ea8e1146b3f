#include "tree/SDragPayload.h"

#include "model/RowValue.h"
#include "nodes/EnNodeType.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <algorithm>

namespace {

constexpr char szFormat[] = "PROCESSOR DATA";

} // namespace

SDragPayload SDragPayload::ForRows(const QModelIndexList& listRow)
{
    SDragPayload payload;
    payload.bAllow = std::none_of(listRow.cbegin(), listRow.cend(), [](const QModelIndex& index) {
        const int nType = RowValue::NodeType(index);
        return nType == NodeGroup || nType == NodeAll;
    });
    return payload;
}

bool SDragPayload::IsIn(const QMimeData* pData)
{
    return pData->hasFormat(szFormat);
}

SDragPayload SDragPayload::FromMime(const QMimeData* pData)
{
    // Not by QDataStream, which takes every other byte than 0 for true and leaves the rest unread.
    SDragPayload payload;
    payload.bAllow = pData->data(szFormat) == QByteArray(1, 1);
    return payload;
}

QMimeData* SDragPayload::ToMime() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << bAllow;
    QMimeData* const pData = new QMimeData;
    pData->setData(szFormat, bytes);
    return pData;
}
