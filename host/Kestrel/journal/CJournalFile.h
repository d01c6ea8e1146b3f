#pragma once

#include <QFile>
#include <QObject>

class CCallLog;

/// Writes the journal to a file as it grows, for those who follow the program from outside. One line a
/// record, by tabs: number, time in ms since 1970, kind (command, read, message, note), thread (gui or a
/// number), object, text. GUI thread.
class CJournalFile : public QObject
{
    Q_OBJECT

public:
    CJournalFile(CCallLog& journalIn, const QString& strFile, QObject* parent = nullptr);

    /// Writes what is left: the panel's last calls come when no loop runs any more.
    ~CJournalFile() override;

    /// Starts writing. False when the file cannot be written; GetError says why.
    bool Open();
    QString GetError() const;

private:
    void WriteNew();

    CCallLog& journal;
    QFile file;
    quint64 nWritten = 0; ///< number of the last record in the file
};
