#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What was found at a path.
struct SFileContent
{
    enum EnKind
    {
        Absent, ///< nothing has this name
        Read,
        Unreadable ///< something is there, but no regular file, too long, or out of reach
    };

    EnKind kind = Absent;
    QByteArray bytes;  ///< for Read: all of it
    QString strReason; ///< for Unreadable, in a few words
};

/// Files as the system has them, where Qt's classes do not tell faults apart. For any thread; all but GetReason
/// may block for the disk.
namespace FileAccess {

/// Reads a regular file of at most nMaxBytes. Never waits for another process, as opening a pipe would.
SFileContent Read(const QString& strPath, int nMaxBytes);

/// The file behind the symbolic links at the end of strPath; strPath as it is when there are none, or when
/// they lead round in a circle. Empty when the system does not say where they lead.
QString FollowLinks(const QString& strPath);

/// True when both name the same file in the same folder, however they are spelled. None when the system does not say.
std::optional<bool> IsSamePlace(const QString& strPath, const QString& strOther);

/// True when the same file stands at both, also under two names of its own. None when the system does not say.
std::optional<bool> IsSameFile(const QString& strPath, const QString& strOther);

/// The words for a value of errno.
QString GetReason(int nError);

} // namespace FileAccess
