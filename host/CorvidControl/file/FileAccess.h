#pragma once

#include "CorvidControl/file/SFileContent.h"

/// Files as the system has them, where Qt's classes do not tell faults apart. For any thread.
namespace FileAccess {

/// Reads a regular file of at most nMaxBytes. Never waits for another process, as opening a pipe would.
SFileContent Read(const QString& strPath, int nMaxBytes);

/// The file behind the symbolic links at the end of strPath; strPath as it is when there are none, or when
/// they lead round in a circle.
QString FollowLinks(const QString& strPath);

/// True when both name the same file in the same folder, however they are spelled.
bool IsSamePlace(const QString& strPath, const QString& strOther);

/// True when the same file stands at both, also under two names of its own.
bool IsSameFile(const QString& strPath, const QString& strOther);

/// The words for a value of errno.
QString GetReason(int nError);

} // namespace FileAccess
