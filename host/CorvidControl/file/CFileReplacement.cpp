#include "CorvidControl/file/CFileReplacement.h"

#include "CorvidControl/file/FileAccess.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int nMaxNames = 100; // tried until one is free
constexpr mode_t nModeMask = 07777;

QString BuildTemporaryName(const QString& strTarget)
{
    static constexpr char szLetter[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    QString strName = strTarget + QLatin1Char('.');
    for (int n = 0; n < 6; ++n) {
        strName += QLatin1Char(szLetter[QRandomGenerator::system()->bounded(52)]);
    }
    return strName;
}

} // namespace

QString CFileReplacement::Overwrite(const QString& strPath, const QByteArray& bytes)
{
    const QString strReal = FileAccess::FollowLinks(QFileInfo(strPath).absoluteFilePath());
    if (strReal.isEmpty()) {
        return QStringLiteral("it is out of reach");
    }
    CFileReplacement replacement(strReal);
    return replacement.Write(bytes) && replacement.Place(true) == Placed ? QString() : replacement.GetFault();
}

CFileReplacement::CFileReplacement(const QString& strTargetIn) : strTarget(strTargetIn) { }

CFileReplacement::~CFileReplacement()
{
    Close();
    if (!strTemporary.isEmpty()) {
        QFile::remove(strTemporary);
    }
}

bool CFileReplacement::Write(const QByteArray& bytes)
{
    if (!Create() || !TakeOverTarget() || !WriteAll(bytes)) {
        return false;
    }
    if (!Close()) { // some file systems find only here that there is no room
        return Fail(errno);
    }
    // Here, and not at the target: a second process may write there.
    const SFileContent content = FileAccess::Read(strTemporary, bytes.size());
    if (content.kind != SFileContent::Read) {
        return Fail(content.strReason.isEmpty() ? QStringLiteral("it has gone") : content.strReason);
    }
    return content.bytes == bytes || Fail(QStringLiteral("the disk holds something else than was written"));
}

CFileReplacement::EnResult CFileReplacement::Place(bool bOverwrite)
{
    Q_ASSERT(!strTemporary.isEmpty() && nFile < 0 && strFault.isEmpty());
    const QByteArray from = QFile::encodeName(strTemporary);
    const QByteArray to = QFile::encodeName(strTarget);
    int nResult = bOverwrite ? std::rename(from.constData(), to.constData())
                             : renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE);
    if (nResult != 0 && !bOverwrite && (errno == EINVAL || errno == ENOSYS)) {
        nResult = link(from.constData(), to.constData()); // a file system without the flag
    } else if (nResult == 0) {
        strTemporary.clear();
    }
    if (nResult == 0) {
        return Placed;
    }
    const bool bTaken = !bOverwrite && errno == EEXIST;
    Fail(errno);
    return bTaken ? Taken : Failed;
}

bool CFileReplacement::Create()
{
    for (int n = 0; n < nMaxNames; ++n) {
        const QString strName = BuildTemporaryName(strTarget);
        nFile = open(QFile::encodeName(strName).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (nFile >= 0) {
            strTemporary = strName;
            return true;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return Fail(errno);
}

// Before anything is written: nobody may read a list under another mode than its own.
bool CFileReplacement::TakeOverTarget()
{
    const QByteArray path = QFile::encodeName(strTarget);
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0) { // a link that nobody has followed is not replaced
        return errno == ENOENT || Fail(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return Fail(S_ISDIR(status.st_mode) ? QStringLiteral("it is a folder") : QStringLiteral("it is no regular file"));
    }
    if (faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) != 0) {
        return Fail(errno);
    }
    mode_t nMode = status.st_mode & nModeMask;
    const bool bGroup = fchown(nFile, static_cast<uid_t>(-1), status.st_gid) == 0;
    if (!bGroup) { // another group gets no more than all others
        nMode = (nMode & ~static_cast<mode_t>(S_ISUID | S_ISGID | S_IRWXG)) | ((nMode & S_IRWXO) << 3);
    }
    // Only root can give a file to another user; with anybody else it keeps its new owner.
    if (fchown(nFile, status.st_uid, static_cast<gid_t>(-1)) != 0 && errno != EPERM) {
        return Fail(errno);
    }
    return fchmod(nFile, nMode) == 0 || Fail(errno);
}

bool CFileReplacement::WriteAll(const QByteArray& bytes)
{
    int nWritten = 0;
    while (nWritten < bytes.size()) {
        const ssize_t nPart = write(nFile, bytes.constData() + nWritten, static_cast<size_t>(bytes.size() - nWritten));
        if (nPart < 0 && errno != EINTR) {
            return Fail(errno);
        }
        nWritten += static_cast<int>(qMax<ssize_t>(0, nPart));
    }
    return fsync(nFile) == 0 || Fail(errno);
}

bool CFileReplacement::Fail(int nError)
{
    return Fail(FileAccess::GetReason(nError));
}

bool CFileReplacement::Fail(const QString& strReason)
{
    strFault = strReason;
    return false;
}

bool CFileReplacement::Close()
{
    return nFile < 0 || close(std::exchange(nFile, -1)) == 0;
}
