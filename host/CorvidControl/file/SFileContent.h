#pragma once

#include <QByteArray>
#include <QString>

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
