#include "tree/SDragPayload.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace {

const char* const szFormat = "PROCESSOR DATA";

} // namespace

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
