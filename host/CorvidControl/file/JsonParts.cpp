#include "CorvidControl/file/JsonParts.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

// Far above what a list needs; they bound what a hostile text can claim.
constexpr int nMaxDepth = 4; // objects within objects
constexpr int nMaxParts = 65536;

// Recovers at each sign that cannot stand where it does: an object in an object, and not in an array of it, means that
// the end of the first is gone.
class CScanner
{
public:
    CScanner(const QByteArray& textIn, const QStringList& listArrayIn, const QStringList& listPlainIn)
        : text(textIn), listArray(listArrayIn), listPlain(listPlainIn), nLast(FindLast(textIn))
    { }

    SJsonPart ReadFirst()
    {
        SJsonPart part;
        nAt = text.indexOf('{');
        if (nAt >= 0) {
            ++nAt;
            ReadObject(part, 1);
        }
        return part;
    }

private:
    void ReadObject(SJsonPart& part, int nDepth);
    QString ReadEntry(SJsonPart& part, int nDepth);
    void ReadArray(SJsonPart& part, const QString& strKey, int nDepth);
    QByteArray ReadToken();
    bool ReadScalar(QJsonArray& array);
    void SkipBlanks();
    bool HoldsObjects(const QString& strKey) const;
    static int FindLast(const QByteArray& text);

    // Nothing but blanks follows this sign.
    bool IsLast() const
    {
        return nAt >= nLast;
    }

    bool IsEnd() const
    {
        return nAt >= text.size();
    }

    const QByteArray text;
    const QStringList listArray;
    const QStringList listPlain;
    const int nLast; ///< the place of the last byte that is no blank; -1 without one
    int nAt = 0;
    int nParts = 0;
};

void CScanner::ReadObject(SJsonPart& part, int nDepth)
{
    QString strLost; // the last key, when its value was none
    for (SkipBlanks(); !IsEnd(); SkipBlanks()) {
        const char ch = text.at(nAt);
        const bool bRoot = nDepth == 1;
        if (ch == '"') {
            strLost = ReadEntry(part, nDepth);
        } else if (ch == '}' && (!bRoot || IsLast())) {
            ++nAt;
            part.bWhole = true;
            return;
        } else if (ch == '{' && (bRoot || listArray.contains(strLost))) {
            ReadArray(part, strLost, nDepth); // the beginning of the array is gone
        } else if ((ch == '{' && strLost.isEmpty()) || (ch == ']' && !bRoot)) {
            return; // its end is gone: this is the next one's, or the array's
        } else {
            ++nAt;
            strLost.clear();
        }
    }
}

// The key when its value cannot be read, else empty.
QString CScanner::ReadEntry(SJsonPart& part, int nDepth)
{
    QJsonArray arrayKey;
    ReadScalar(arrayKey);
    SkipBlanks();
    const QString strKey = arrayKey.first().toString();
    if (strKey.isEmpty() || IsEnd() || text.at(nAt) != ':') {
        return {};
    }
    ++nAt;
    SkipBlanks();
    if (!IsEnd() && text.at(nAt) == '[') {
        ++nAt;
        ReadArray(part, strKey, nDepth);
        return {};
    }
    QJsonArray array;
    if (!ReadScalar(array)) {
        return strKey;
    }
    if (!part.object.contains(strKey)) {
        part.object.insert(strKey, array.first());
    }
    return {};
}

void CScanner::ReadArray(SJsonPart& part, const QString& strKey, int nDepth)
{
    const bool bObjects = HoldsObjects(strKey);
    QJsonArray array;
    for (SkipBlanks(); !IsEnd(); SkipBlanks()) {
        const char ch = text.at(nAt);
        if (ch == ']') {
            ++nAt;
            break;
        }
        if (ch == '}' || ch == ':') {
            break; // the end of the array is gone
        }
        if (ch == '{' && bObjects && nDepth < nMaxDepth && nParts < nMaxParts) {
            ++nAt;
            ++nParts;
            SJsonPart partNew;
            partNew.strKey = strKey;
            ReadObject(partNew, nDepth + 1);
            part.vecPart.append(partNew);
        } else if (ch == ',' || ch == '{' || ch == '[' || !ReadScalar(array)) {
            nAt += ch == ',' || ch == '{' || ch == '[' ? 1 : 0;
        }
    }
    part.object.insert(strKey, array);
}

// A string, which ends at the end of its line at the latest, or anything else up to the next sign.
QByteArray CScanner::ReadToken()
{
    const int nStart = nAt;
    if (text.at(nAt) == '"') {
        for (++nAt; !IsEnd() && text.at(nAt) != '"' && text.at(nAt) != '\n'; ++nAt) {
            nAt += text.at(nAt) == '\\' && nAt + 1 < text.size() && text.at(nAt + 1) != '\n' ? 1 : 0;
        }
        nAt += IsEnd() || text.at(nAt) == '\n' ? 0 : 1;
        return text.mid(nStart, nAt - nStart);
    }
    static const QByteArray signs(",:{}[]\"\n");
    while (!IsEnd() && !signs.contains(text.at(nAt))) {
        ++nAt;
    }
    return text.mid(nStart, nAt - nStart);
}

// False for what is no value. At least one byte is read, unless a sign stands there.
bool CScanner::ReadScalar(QJsonArray& array)
{
    const QByteArray token = IsEnd() ? QByteArray() : ReadToken();
    const QJsonArray arrayRead = QJsonDocument::fromJson('[' + token + ']').array();
    if (token.isEmpty() || arrayRead.isEmpty()) {
        return false;
    }
    array.append(arrayRead.first());
    return true;
}

void CScanner::SkipBlanks()
{
    static const QByteArray blanks(" \t\r\n");
    while (!IsEnd() && blanks.contains(text.at(nAt))) {
        ++nAt;
    }
}

// Those of a key that is damaged too: their first stands on a line of its own.
bool CScanner::HoldsObjects(const QString& strKey) const
{
    int nNext = nAt;
    while (nNext < text.size() && (text.at(nNext) == ' ' || text.at(nNext) == '\n')) {
        ++nNext;
    }
    const bool bOwnLine = !IsEnd() && text.at(nAt) == '\n' && nNext < text.size() && text.at(nNext) == '{';
    return !listPlain.contains(strKey) && (strKey.isEmpty() || bOwnLine || listArray.contains(strKey));
}

int CScanner::FindLast(const QByteArray& text)
{
    static const QByteArray blanks(" \t\r\n\v\f");
    int nPlace = text.size() - 1;
    while (nPlace >= 0 && blanks.contains(text.at(nPlace))) {
        --nPlace;
    }
    return nPlace;
}

} // namespace

SJsonPart JsonParts::Read(const QByteArray& text, const QStringList& listArray, const QStringList& listPlain)
{
    return CScanner(text, listArray, listPlain).ReadFirst();
}
