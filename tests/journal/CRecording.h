#pragma once

#include "journal/recording/CJournalWriter.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

/// A folder for a recording, and what stands in its files.
class CRecording
{
public:
    /// The path of the folder, which does not exist yet.
    QString GetFolder() const;

    /// Waits until everything so far is written, then all lines of all files, in order.
    QList<QJsonObject> Read(CJournalWriter& writer) const;

    /// All lines of all files, in order. A line that is no JSON object is an empty one.
    QList<QJsonObject> Read() const;

    /// Those of one kind.
    static QList<QJsonObject> Pick(const QList<QJsonObject>& listLine, const QString& strKind);

    static QByteArray ReadFile(const QString& strPath);

    /// A note with that text, as the host writes it.
    static SJournalRecord Note(const QString& strText);

    /// A call that only reads.
    static SJournalRecord ReadingCall();

    QTemporaryDir folder;
};
