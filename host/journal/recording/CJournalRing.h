#pragma once

#include "journal/recording/SRecordingLimits.h"

#include <QFile>

/// The files of a recording, in one folder: "000001.jsonl" and on. A new file is begun behind the newest, whoever wrote
/// that, and the oldest go when there are too many; what an earlier run left is never written to. Only its own user may
/// read the files, from their first moment; the rights of a folder that is there already stay as they are. One thread.
class CJournalRing
{
public:
    /// The folder is made where it is missing.
    CJournalRing(const QString& strFolderIn, const SRecordingLimits& limitsIn);

    /// The next line belongs into a new file: the first, or when the last one is full, or was removed by somebody.
    bool NeedsFile() const;

    /// Begins a new file with that line. False when that fails: see GetError.
    bool Begin(const QByteArray& header);

    /// Writes a line and its newline at once. False when the disk does not take it all; the file then ends
    /// with the line before.
    bool Write(const QByteArray& line);

    /// Why the last Begin or Write failed.
    QString GetError() const;

    QString GetFolder() const;

    /// The files of a folder, oldest first, with their paths.
    static QStringList GetFiles(const QString& strFolder);

private:
    bool IsRemoved() const;
    bool MakeFolder();
    bool OpenNext();
    bool Create();
    void RemoveOldest();

    const QString strFolder;
    const SRecordingLimits limits;
    QFile file;
    qint64 nWritten = 0; ///< bytes of whole lines in the file
    QString strError;
};
