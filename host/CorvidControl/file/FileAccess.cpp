#include "CorvidControl/file/FileAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int nMaxLinks = 40; // as many as the kernel follows

SFileContent BuildUnreadable(const QString& strReason)
{
    SFileContent content;
    content.kind = SFileContent::Unreadable;
    content.strReason = strReason;
    return content;
}

bool IsAbsence(int nError)
{
    return nError == ENOENT || nError == ENOTDIR;
}

// Not Qt's: it takes a link that it cannot look at for none.
bool FindLink(const QString& strPath, bool& bLink)
{
    struct stat status = {};
    const bool bThere = lstat(QFile::encodeName(strPath).constData(), &status) == 0;
    bLink = bThere && S_ISLNK(status.st_mode);
    return bThere || IsAbsence(errno);
}

// Only ENOENT means that a file is not there; about a file out of reach nothing is known. A link that leads
// nowhere counts as there: its target may just not be mounted yet.
SFileContent BuildMissing(const QString& strPath, int nError)
{
    if (nError != ENOENT) {
        return BuildUnreadable(FileAccess::GetReason(nError));
    }
    bool bLink = false;
    if (!FindLink(strPath, bLink)) {
        return BuildUnreadable(FileAccess::GetReason(errno));
    }
    return bLink ? BuildUnreadable(QStringLiteral("the link leads nowhere")) : SFileContent();
}

QString FindStatusFault(const struct stat& status, int nMaxBytes)
{
    if (S_ISDIR(status.st_mode)) {
        return QStringLiteral("it is a folder");
    }
    if (!S_ISREG(status.st_mode)) {
        return QStringLiteral("it is no regular file");
    }
    return status.st_size > nMaxBytes ? QStringLiteral("it is too long (%1 bytes)").arg(status.st_size) : QString();
}

// Reads into one byte more than expected, so that a file that grows meanwhile is noticed.
SFileContent ReadAll(int nFile, int nBytes)
{
    QByteArray bytes(nBytes + 1, Qt::Uninitialized);
    int nRead = 0;
    ssize_t nPart = 1;
    while (nPart != 0 && nRead < bytes.size()) {
        nPart = read(nFile, bytes.data() + nRead, static_cast<size_t>(bytes.size() - nRead));
        if (nPart < 0 && errno != EINTR) {
            return BuildUnreadable(FileAccess::GetReason(errno));
        }
        nRead += static_cast<int>(qMax<ssize_t>(0, nPart));
    }
    bytes.resize(nRead);
    SFileContent content;
    content.kind = SFileContent::Read;
    content.bytes = bytes;
    return nRead == nBytes ? content : BuildUnreadable(QStringLiteral("it changed while it was read"));
}

SFileContent ReadOpen(int nFile, int nMaxBytes)
{
    struct stat status = {};
    if (fstat(nFile, &status) != 0) {
        return BuildUnreadable(FileAccess::GetReason(errno));
    }
    const QString strFault = FindStatusFault(status, nMaxBytes);
    return strFault.isEmpty() ? ReadAll(nFile, static_cast<int>(status.st_size)) : BuildUnreadable(strFault);
}

struct SNode
{
    bool bKnown = true; ///< the system has said what is there, or that nothing is
    bool bThere = false;
    struct stat status = {};
};

SNode FindNode(const QString& strPath)
{
    SNode node;
    node.bThere = stat(QFile::encodeName(strPath).constData(), &node.status) == 0;
    node.bKnown = node.bThere || IsAbsence(errno);
    return node;
}

bool IsSameNode(const SNode& node, const SNode& other)
{
    return node.bThere && other.bThere && node.status.st_dev == other.status.st_dev && node.status.st_ino == other.status.st_ino;
}

} // namespace

SFileContent FileAccess::Read(const QString& strPath, int nMaxBytes)
{
    const QByteArray path = QFile::encodeName(strPath);
    struct stat status = {};
    if (stat(path.constData(), &status) != 0) {
        return BuildMissing(strPath, errno);
    }
    // Before it is opened, since opening alone can do something to a device; and again afterwards.
    const QString strFault = FindStatusFault(status, nMaxBytes);
    if (!strFault.isEmpty()) {
        return BuildUnreadable(strFault);
    }
    const int nFile = open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (nFile < 0) {
        return BuildMissing(strPath, errno);
    }
    const SFileContent content = ReadOpen(nFile, nMaxBytes);
    close(nFile);
    return content;
}

QString FileAccess::FollowLinks(const QString& strPath)
{
    QString strReal = strPath;
    for (int n = 0; n < nMaxLinks; ++n) {
        bool bLink = false;
        if (!FindLink(strReal, bLink)) {
            return {};
        }
        if (!bLink) {
            return strReal;
        }
        // Not QFileInfo's target: it cleans "..", which is wrong behind a link to a folder.
        QByteArray target(4096, Qt::Uninitialized);
        const ssize_t nLength
            = readlink(QFile::encodeName(strReal).constData(), target.data(), static_cast<size_t>(target.size()));
        if (nLength <= 0 || nLength == target.size()) {
            return {};
        }
        const QString strTarget = QFile::decodeName(target.left(static_cast<int>(nLength)));
        strReal = strTarget.startsWith(QLatin1Char('/')) ? strTarget : QFileInfo(strReal).path() + QLatin1Char('/') + strTarget;
    }
    return strPath;
}

std::optional<bool> FileAccess::IsSamePlace(const QString& strPath, const QString& strOther)
{
    if (strPath == strOther) {
        return true;
    }
    const QFileInfo info(FollowLinks(strPath));
    const QFileInfo other(FollowLinks(strOther));
    const SNode folder = FindNode(info.path());
    const SNode folderOther = FindNode(other.path());
    if (info.filePath().isEmpty() || other.filePath().isEmpty() || !folder.bKnown || !folderOther.bKnown) {
        return std::nullopt;
    }
    if (!folder.bThere || !folderOther.bThere) {
        return QDir::cleanPath(info.absoluteFilePath()) == QDir::cleanPath(other.absoluteFilePath());
    }
    return IsSameNode(folder, folderOther) && info.fileName() == other.fileName();
}

std::optional<bool> FileAccess::IsSameFile(const QString& strPath, const QString& strOther)
{
    const SNode node = FindNode(strPath);
    const SNode other = FindNode(strOther);
    return node.bKnown && other.bKnown ? std::make_optional(IsSameNode(node, other)) : std::nullopt;
}

QString FileAccess::GetReason(int nError)
{
    return QString::fromStdString(std::system_category().message(nError));
}
