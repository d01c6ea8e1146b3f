#include "CorvidControl/DatedFile.h"

#include "CorvidControl/CFileReplacement.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace
{

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

} // namespace

QString DatedFile::Write(const QString& strListPath, const QString& strMark, const QDateTime& date, const QByteArray& bytes,
                         QString& strFault)
{
    const QString strStart = QFileInfo(strListPath).path() + QLatin1Char('/') + GetStem(strListPath) + QLatin1Char('.') + strMark
        + date.toString(QString::fromLatin1(szDateFormat));
    for (int n = 1;; ++n) {
        const QString strPath = strStart + (n > 1 ? QStringLiteral("-%1").arg(n) : QString()) + QLatin1String(szSuffix);
        const QFileInfo info(strPath);
        if (info.exists() || info.isSymLink()) {
            continue;
        }
        CFileReplacement replacement(strPath);
        const CFileReplacement::EnResult result = replacement.Write(bytes) ? replacement.Place(false) : CFileReplacement::Failed;
        if (result == CFileReplacement::Placed) {
            return strPath;
        }
        if (result == CFileReplacement::Failed) {
            strFault = strPath + QStringLiteral(": ") + replacement.GetFault();
            return {};
        }
    }
}

QStringList DatedFile::Find(const QString& strListPath, const QString& strMark, const QDateTime& dateNow)
{
    struct SEntry
    {
        bool bPast;
        QDateTime date;
        int nNumber;
        QString strPath;
    };
    const QDir folder(QFileInfo(strListPath).path());
    const QRegularExpression expression = BuildExpression(GetStem(strListPath) + QLatin1Char('.') + strMark);
    std::vector<SEntry> vecEntry;
    const QStringList listName = folder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString& strName : listName) {
        const QRegularExpressionMatch match = expression.match(strName);
        const QDateTime date = ReadDate(match.captured(1));
        if (date.isValid()) {
            vecEntry.push_back({ date <= dateNow, date, match.captured(2).toInt(), folder.filePath(strName) });
        }
    }
    std::sort(vecEntry.begin(), vecEntry.end(), [](const SEntry& entry, const SEntry& other) {
        return std::tie(entry.bPast, entry.date, entry.nNumber) < std::tie(other.bPast, other.date, other.nNumber);
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
