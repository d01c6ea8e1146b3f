#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QSharedPointer>
#include <QString>

struct SProcessorAllNode;

/// One line of a recorded run: a call, a message, what the user did, a note, a guard's line.
struct SRecordedLine
{
    quint64 nNumber = 0;      ///< the order in which things began, from 1
    qint64 nMicroseconds = 0; ///< since the start of the run, by the steady clock
    QDateTime date;           ///< the same by the wall clock, UTC, which may be set back
    QString strKind;          ///< "call", "message", "user", "note", "guard"; "begin" for a call that never came back
    QString strThread;        ///< "gui", "worker-2", "pool-3", "other-4"
    QString strObject;        ///< "PrcListControl", "User"
    QString strOperation;     ///< empty for a message or note
    QJsonObject fields;       ///< the line as it stands in the file

    /// The whole tree that a call has read; null for every other line.
    QSharedPointer<const SProcessorAllNode> pTree;

    /// "MoveProcessor(1c0ffee0-…, 00000000-…)", "message 7", "key press": for a reader.
    QString GetText() const;
};
