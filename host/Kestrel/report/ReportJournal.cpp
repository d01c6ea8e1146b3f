#include "Kestrel/report/ReportJournal.h"

#include <QDir>
#include <QRegularExpression>

#include <archive.h>
#include <archive_entry.h>
#include <memory>

namespace {

constexpr int nMostFiles = 64;              ///< four times those of a journal
constexpr qint64 nMostBytes = 128LL << 20U; ///< of all together; a journal has half of that
constexpr size_t nBlockBytes = 64 << 10U;

struct SArchiveEnd
{
    void operator()(archive* pArchive) const
    {
        archive_read_free(pArchive);
    }
};

using ArchivePtr = std::unique_ptr<archive, SArchiveEnd>;

QString GetReason(archive* pArchive)
{
    const char* szReason = archive_error_string(pArchive);
    return szReason ? QString::fromUtf8(szReason) : QStringLiteral("the archive is damaged");
}

QString Open(const ArchivePtr& pArchive, const QString& strReport)
{
    archive_read_support_format_tar(pArchive.get());
    archive_read_support_filter_gzip(pArchive.get());
    const int nResult = archive_read_open_filename(pArchive.get(), QFile::encodeName(strReport).constData(), nBlockBytes);
    return nResult == ARCHIVE_OK ? QString() : GetReason(pArchive.get());
}

/// The name of a file of the journal; empty for everything else that an archive may hold.
QString GetJournalName(archive_entry* pEntry)
{
    static const QRegularExpression expression(QStringLiteral("\\A(?:\\./)?journal/([0-9]{6,9}\\.jsonl)\\z"));
    const bool bPlain = archive_entry_filetype(pEntry) == AE_IFREG && !archive_entry_hardlink(pEntry);
    return bPlain ? expression.match(QString::fromUtf8(archive_entry_pathname(pEntry))).captured(1) : QString();
}

/// Takes the bytes of a file from nLeft.
QString Extract(const ArchivePtr& pArchive, const QString& strFile, qint64& nLeft, QString& strDamage)
{
    QFile file(strFile);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return file.errorString();
    }
    QByteArray block(static_cast<int>(nBlockBytes), '\0');
    la_ssize_t nRead = 0;
    while ((nRead = archive_read_data(pArchive.get(), block.data(), nBlockBytes)) > 0) {
        nLeft -= nRead;
        if (nLeft < 0) {
            return QStringLiteral("its journal is larger than Kestrel writes one");
        }
        if (file.write(block.constData(), nRead) != nRead) {
            return file.errorString();
        }
    }
    strDamage = nRead < 0 ? GetReason(pArchive.get()) : QString();
    return {};
}

} // namespace

QString ReportJournal::Unpack(const QString& strReport, const QString& strFolder, QString& strDamage)
{
    const ArchivePtr pArchive(archive_read_new());
    QString strReason = Open(pArchive, strReport);
    qint64 nLeft = nMostBytes;
    int nFiles = 0;
    archive_entry* pEntry = nullptr;
    int nResult = ARCHIVE_OK;
    strDamage.clear();
    while (strReason.isEmpty() && strDamage.isEmpty()
           && (nResult = archive_read_next_header(pArchive.get(), &pEntry)) == ARCHIVE_OK) {
        const QString strName = GetJournalName(pEntry);
        if (!strName.isEmpty()) {
            strReason = ++nFiles > nMostFiles ? QStringLiteral("it has more files of a journal than Kestrel keeps")
                                              : Extract(pArchive, QDir(strFolder).filePath(strName), nLeft, strDamage);
        }
    }
    if (strReason.isEmpty() && strDamage.isEmpty() && nResult != ARCHIVE_EOF) {
        (nFiles == 0 ? strReason : strDamage) = GetReason(pArchive.get());
    }
    return strReason.isEmpty() && nFiles == 0 ? QStringLiteral("there is no journal in it") : strReason;
}
