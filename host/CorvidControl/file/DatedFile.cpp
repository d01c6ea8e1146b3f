#include "CorvidControl/file/DatedFile.h"

#include "CorvidControl/file/CFileReplacement.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace {

constexpr char szDateFormat[] = "yyyy-MM-dd_HH-mm-ss";
constexpr char szSuffix[] = ".kvtl";

QString GetStem(const QString& strListPath)
{
    const QString strName = QFileInfo(strListPath).fileName();
    return strName.endsWith(QLatin1String(szSuffix)) ? strName.chopped(static_cast<int>(sizeof szSuffix) - 1) : strName;
}

QRegularExpression BuildExpression(const QString& strStart)
{
    return QRegularExpression(
        QStringLiteral("^%1([0-9]{4}-[0-9]{2}-[0-9]{2}_[0-9]{2}-[0-9]{2}-[0-9]{2})(?:-([0-9]{1,6}))?\\.kvtl$")
            .arg(QRegularExpression::escape(strStart)));
}

QDateTime ReadDate(const QString& strText)
{
    return QDateTime::fromString(strText, QString::fromLatin1(szDateFormat));
}

struct SEntry
{
    QDateTime date;
    int nNumber = 1;
    QString strPath;
};

std::vector<SEntry> FindEntries(const QString& strListPath, const QString& strMark)
{
    const QDir folder(QFileInfo(strListPath).path());
    const QRegularExpression expression = BuildExpression(GetStem(strListPath) + QLatin1Char('.') + strMark);
    std::vector<SEntry> vecEntry;
    const QStringList listName = folder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString& strName : listName) {
        const QRegularExpressionMatch match = expression.match(strName);
        const QDateTime date = ReadDate(match.captured(1));
        if (date.isValid()) {
            vecEntry.push_back({ date, qMax(1, match.captured(2).toInt()), folder.filePath(strName) });
        }
    }
    return vecEntry;
}

// After all existing ones, even where one in between was removed: the numbers are an order.
int FindNextNumber(const QString& strListPath, const QString& strMark, const QString& strDate)
{
    int nNext = 1;
    for (const SEntry& entry : FindEntries(strListPath, strMark)) {
        nNext = entry.date == ReadDate(strDate) ? qMax(nNext, entry.nNumber + 1) : nNext;
    }
    return nNext;
}

} // namespace

QString DatedFile::Write(const QString& strListPath, const QString& strMark, const QDateTime& date, const QByteArray& bytes,
                         QString& strFault)
{
    const QString strDate = date.toString(QString::fromLatin1(szDateFormat));
    const QString strStart
        = QFileInfo(strListPath).path() + QLatin1Char('/') + GetStem(strListPath) + QLatin1Char('.') + strMark + strDate;
    CFileReplacement::EnResult result = CFileReplacement::Taken;
    for (int n = FindNextNumber(strListPath, strMark, strDate); result == CFileReplacement::Taken; ++n) {
        const QString strPath = strStart + (n > 1 ? QStringLiteral("-%1").arg(n) : QString()) + QLatin1String(szSuffix);
        CFileReplacement replacement(strPath);
        result = replacement.Write(bytes) ? replacement.Place(false) : CFileReplacement::Failed;
        if (result == CFileReplacement::Placed) {
            return strPath;
        }
        strFault = strPath + QStringLiteral(": ") + replacement.GetFault();
    }
    return {};
}

QStringList DatedFile::Find(const QString& strListPath, const QString& strMark, const QDateTime& dateNow)
{
    std::vector<SEntry> vecEntry = FindEntries(strListPath, strMark);
    std::sort(vecEntry.begin(), vecEntry.end(), [&](const SEntry& entry, const SEntry& other) {
        const bool bPast = entry.date <= dateNow;
        const bool bOtherPast = other.date <= dateNow;
        return std::tie(bPast, entry.date, entry.nNumber) < std::tie(bOtherPast, other.date, other.nNumber);
    });
    QStringList listPath;
    for (const SEntry& entry : vecEntry) {
        listPath.append(entry.strPath);
    }
    return listPath;
}

QDateTime DatedFile::GetDate(const QString& strPath)
{
    static const QRegularExpression expression(QStringLiteral("([0-9]{4}-[0-9]{2}-[0-9]{2}_[0-9]{2}-[0-9]{2}-[0-9]{2})[^_]*$"));
    return ReadDate(expression.match(QFileInfo(strPath).fileName()).captured(1));
}
