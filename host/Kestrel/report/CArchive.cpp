#include "Kestrel/report/CArchive.h"

#include <QDateTime>

#include <archive.h>
#include <archive_entry.h>
#include <cerrno>

namespace {

constexpr int nRightsOfUser = 0600;

la_ssize_t WriteToFile(archive* pArchive, void* pFile, const void* pBytes, size_t nBytes)
{
    auto& file = *static_cast<QSaveFile*>(pFile);
    const qint64 nTaken = file.write(static_cast<const char*>(pBytes), static_cast<qint64>(nBytes));
    if (nTaken < 0) {
        archive_set_error(pArchive, EIO, "%s", qUtf8Printable(file.errorString()));
    }
    return static_cast<la_ssize_t>(nTaken);
}

} // namespace

CArchive::CArchive(const QString& strFile) : file(strFile), pArchive(archive_write_new())
{
    // Its buffer would lose the reason of a write that is taken in part; the archive writes in blocks by itself.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        strError = file.errorString();
        return;
    }
    Check(archive_write_set_format_pax_restricted(pArchive));
    Check(archive_write_add_filter_gzip(pArchive));
    Check(archive_write_open(pArchive, &file, nullptr, &WriteToFile, nullptr));
}

CArchive::~CArchive()
{
    archive_write_free(pArchive);
}

void CArchive::Add(const QString& strName, const QByteArray& bytes)
{
    if (!strError.isEmpty()) {
        return;
    }
    archive_entry* pEntry = archive_entry_new();
    archive_entry_set_pathname_utf8(pEntry, strName.toUtf8().constData());
    archive_entry_set_size(pEntry, bytes.size());
    archive_entry_set_filetype(pEntry, AE_IFREG);
    archive_entry_set_perm(pEntry, nRightsOfUser);
    archive_entry_set_mtime(pEntry, QDateTime::currentSecsSinceEpoch(), 0);
    Check(archive_write_header(pArchive, pEntry));
    archive_entry_free(pEntry);
    if (archive_write_data(pArchive, bytes.constData(), static_cast<size_t>(bytes.size())) < 0) {
        Check(ARCHIVE_FATAL);
    }
}

QString CArchive::Close()
{
    if (strError.isEmpty()) {
        Check(archive_write_close(pArchive));
    }
    if (strError.isEmpty() && !file.commit()) {
        strError = file.errorString();
    }
    return strError;
}

void CArchive::Check(int nResult)
{
    if (nResult < ARCHIVE_WARN && strError.isEmpty()) {
        const char* szReason = archive_error_string(pArchive);
        strError = szReason ? QString::fromUtf8(szReason) : QStringLiteral("the archive cannot be written");
    }
}
