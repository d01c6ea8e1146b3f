#include "CorvidControl/day/JsonKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QStringList>
#include <QVector>

namespace {

/// An object or a list that is being read.
struct SLevel
{
    bool bObject = false;
    bool bKeyNext = false; ///< of an object: the next text is a key
    int nEntry = 1;        ///< of a list, from 1
    QString strKey;        ///< of an object: that of the present value
    QSet<QString> setKey;
};

/// The end of the text that begins at nBegin, behind its last quote.
int FindTextEnd(const QByteArray& bytes, int nBegin)
{
    int nAt = nBegin + 1;
    while (nAt < bytes.size() && bytes.at(nAt) != '"') {
        nAt += bytes.at(nAt) == '\\' ? 2 : 1;
    }
    return nAt + 1;
}

/// With its escapes resolved.
QString ReadText(const QByteArray& text)
{
    return QJsonDocument::fromJson('[' + text + ']').array().at(0).toString();
}

QStringList GetWay(const QVector<SLevel>& vecLevel)
{
    QStringList listWay;
    for (const SLevel& level : vecLevel) {
        listWay.append(level.bObject ? level.strKey : QString::number(level.nEntry));
    }
    return listWay;
}

void TakeSign(char cSign, QVector<SLevel>& vecLevel)
{
    if (cSign == '{' || cSign == '[') {
        SLevel level;
        level.bObject = level.bKeyNext = cSign == '{';
        vecLevel.append(level);
    } else if (cSign == '}' || cSign == ']') {
        vecLevel.removeLast();
    } else if (cSign == ',') {
        vecLevel.last().bKeyNext = vecLevel.constLast().bObject;
        ++vecLevel.last().nEntry;
    }
}

/// False for a key that is there already.
bool TakeKey(const QString& strKey, SLevel& level)
{
    const bool bNew = !level.setKey.contains(strKey);
    level.setKey.insert(strKey);
    level.strKey = strKey;
    level.bKeyNext = false;
    return bNew;
}

} // namespace

QStringList JsonKeys::FindTwice(const QByteArray& bytes)
{
    QVector<SLevel> vecLevel;
    for (int n = 0; n < bytes.size(); ++n) {
        if (bytes.at(n) != '"') {
            TakeSign(bytes.at(n), vecLevel);
            continue;
        }
        const int nEnd = FindTextEnd(bytes, n);
        if (vecLevel.constLast().bKeyNext && !TakeKey(ReadText(bytes.mid(n, nEnd - n)), vecLevel.last())) {
            return GetWay(vecLevel);
        }
        n = nEnd - 1;
    }
    return {};
}
