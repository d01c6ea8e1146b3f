#pragma once

#include <QStringList>

/// How writing at the list's own place went.
struct SListSave
{
    enum EnResult
    {
        Saved,
        LeftAlone,  ///< something stands there that is not to be overwritten, or another process writes there
        NotWritten, ///< no room, no rights, no lock; or the list itself could not be read again
        NotReplaced ///< the list is ready beside it, but what stands there could not be replaced
    };

    EnResult result = Saved;
    QString strReason;       ///< for any result but Saved: the file and why, in one line
    bool bSecured = true;    ///< what commands have changed is in a file: there, or in the dated one
    QStringList listWarning; ///< what failed besides, a line each
};
