#pragma once

#include "journal/replay/CRecordedRun.h"

#include <QTemporaryDir>

#include <memory>

/// A recorded run in whichever form it comes: a file of the journal, its folder, or a saved report, unpacked or not. One thread.
class CReplaySource
{
public:
    /// False when nothing can be replayed of it; GetError then has one line. No application is needed.
    bool Open(const QString& strPathIn);

    QString GetError() const;

    /// The exit code for that: 2 for a path that cannot be read, 7 when there is nothing to replay in what is there.
    int GetErrorCode() const;

    /// What a reader has to know of where it comes from, in sentences: which run was taken, what is damaged.
    QStringList GetNotes() const;

    /// As it was given.
    QString GetPath() const;

    const CRecordedRun& GetRun() const;

    /// When what is played of it began, by the clock of its user.
    QDateTime GetStart() const;

    /// What stood on the screen where a run without its first files begins; empty for a whole one.
    QJsonObject GetFirstScreen() const;

    /// A text of the header; empty when it has none.
    QString GetHeaderText(const QString& strKey) const;

private:
    void Read(const QString& strJournal);
    bool Unpack(QString& strFolder);

    QString strPath;
    QString strError;
    int nErrorCode = 0;
    QStringList listNote;
    std::unique_ptr<QTemporaryDir> pFolder; ///< of a report
    CRecordedRun run;
};
