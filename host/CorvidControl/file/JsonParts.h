#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// One object of a damaged JSON text, with the objects in it.
struct SJsonPart
{
    QJsonObject object;         ///< the values that can be read, without the objects in its arrays
    bool bWhole = false;        ///< it has its end
    QVector<SJsonPart> vecPart; ///< the objects in its arrays, in their order
    QString strKey;             ///< of the array in which it stands; empty for the first object of all
};

/// Reads JSON that no parser takes any more: cut short, with bytes that are others or gone. Made for texts with one
/// value per line, in which damage does not reach far. Pure functions, for any thread.
namespace JsonParts {

/// The first object of the text with all that can be read of it; accepts any bytes, in bounded memory. What does not belong
/// to an object is passed over. listArray: the keys whose arrays hold objects; listPlain: those whose arrays never do. An array
/// of any other key is one whose key is damaged.
SJsonPart Read(const QByteArray& text, const QStringList& listArray, const QStringList& listPlain);

} // namespace JsonParts
