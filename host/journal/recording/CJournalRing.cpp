#include "journal/recording/CJournalRing.h"

#include <QDir>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int nDigits = 6;
constexpr int nMostDigits = 9;  ///< of a number that another may follow
constexpr int nMostTries = 100; ///< other programs may begin files at the same time

QString GetName(int nNumber)
{
    return QStringLiteral("%1.jsonl").arg(nNumber, nDigits, 10, QLatin1Char('0'));
}

int GetNumber(const QString& strPath)
{
    return QFileInfo(strPath).baseName().toInt();
}

bool IsOurs(const QFileInfo& info)
{
    return info.baseName().size() <= nMostDigits && GetName(GetNumber(info.filePath())) == info.fileName();
}

} // namespace

CJournalRing::CJournalRing(const QString& strFolderIn, const SRecordingLimits& limitsIn)
    : strFolder(strFolderIn), limits(limitsIn)
{ }

bool CJournalRing::NeedsFile() const
{
    return !file.isOpen() || nWritten >= limits.nFileBytes || IsRemoved();
}

bool CJournalRing::Begin(const QByteArray& header)
{
    file.close();
    nWritten = 0;
    if (!MakeFolder() || !OpenNext()) {
        return false;
    }
    RemoveOldest();
    if (Write(header)) {
        return true;
    }
    file.remove(); // a file without its header says nothing
    return false;
}

bool CJournalRing::Write(const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    qint64 nTaken = file.write(bytes);
    if (nTaken >= 0 && nTaken < bytes.size()) { // the next attempt gives the reason
        nTaken += qMax<qint64>(0, file.write(bytes.mid(static_cast<int>(nTaken))));
    }
    if (nTaken == bytes.size()) {
        nWritten += nTaken;
        return true;
    }
    strError = QStringLiteral("Cannot write '%1': %2").arg(file.fileName(), file.errorString());
    file.resize(nWritten);
    file.seek(nWritten);
    return false;
}

QString CJournalRing::GetError() const
{
    return strError;
}

QString CJournalRing::GetFolder() const
{
    return strFolder;
}

QStringList CJournalRing::GetFiles(const QString& strFolder)
{
    QStringList listFile;
    const QFileInfoList listInfo = QDir(strFolder).entryInfoList({ QStringLiteral("*.jsonl") }, QDir::Files);
    for (const QFileInfo& info : listInfo) {
        if (IsOurs(info)) {
            listFile.append(info.filePath());
        }
    }
    std::sort(listFile.begin(), listFile.end(),
              [](const QString& strOne, const QString& strOther) { return GetNumber(strOne) < GetNumber(strOther); });
    return listFile;
}

// By another program whose turn it was to remove the oldest, or by hand: nobody would ever read what comes.
bool CJournalRing::IsRemoved() const
{
    struct stat status{};
    return fstat(file.handle(), &status) == 0 && status.st_nlink == 0;
}

bool CJournalRing::MakeFolder()
{
    if (QFileInfo(strFolder).isDir()) {
        return true;
    }
    if (!QDir().mkpath(strFolder)) {
        strError = QStringLiteral("Cannot make the folder '%1'").arg(strFolder);
        return false;
    }
    QFile::setPermissions(strFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return true;
}

// Never a file that is there already.
bool CJournalRing::OpenNext()
{
    const QStringList listFile = GetFiles(strFolder);
    const int nNewest = listFile.isEmpty() ? 0 : GetNumber(listFile.constLast());
    errno = EEXIST;
    for (int n = 1; n <= nMostTries && errno == EEXIST; ++n) {
        file.setFileName(strFolder + QLatin1Char('/') + GetName(nNewest + n));
        if (Create()) {
            return true;
        }
    }
    strError = QStringLiteral("Cannot write '%1': %2").arg(file.fileName(), qt_error_string(errno));
    return false;
}

// By the system itself: QFile would set the rights when the file is there already.
bool CJournalRing::Create()
{
    const QByteArray name = QFile::encodeName(file.fileName());
    const int nHandle = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (nHandle < 0) {
        return false;
    }
    close(nHandle);
    return file.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered);
}

void CJournalRing::RemoveOldest()
{
    QStringList listFile = GetFiles(strFolder);
    while (listFile.size() > std::max(2, limits.nFiles)) {
        QFile::remove(listFile.takeFirst());
    }
}
