#pragma once

#include <QString>

/// What kind of line a record is.
enum EnRecordKind
{
    RecordCommand = 0, ///< a call that asks for a change; written before it is carried out
    RecordRead = 1,    ///< a call that only reads; written with its result
    RecordMessage = 2, ///< a message of the control library to its observers
    RecordNote = 3,    ///< what the host has to add: a refusal, a step of a scenario
};

/// One line of the journal.
struct SCallRecord
{
    quint64 nNumber = 0;               ///< 1, 2, 3 … in the order of writing, over all threads
    qint64 nTime = 0;                  ///< milliseconds since 1970, UTC
    int nThread = 0;                   ///< number of the writing thread, 0 for the one that made the journal
    EnRecordKind kind = RecordCommand; ///< what kind of line this is
    const char* pObject = "";          ///< name of the control object, a literal
    QString strText;                   ///< operation with arguments, "MoveProcessor(1c0ffee0, null)"
};
