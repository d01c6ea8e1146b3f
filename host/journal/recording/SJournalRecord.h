#pragma once

#include "journal/recording/JournalValue.h"

#include <QByteArray>

#include <chrono>
#include <vector>

/// What a line of the recording is about.
enum EnJournalLine
{
    LineCall = 0,    ///< a call that has returned
    LineBegin = 1,   ///< a call that may take long has begun; its LineCall has the same number
    LineMessage = 2, ///< a message of the control library to its observers
    LineNote = 3,    ///< what the host has to add: a refusal, a step of the devices
    LineUser = 4,    ///< what the user did
    LineGuard = 5,   ///< the GUI thread was held
};

/// A part of a record by its name.
struct SJournalField
{
    const char* szName; ///< a literal
    JournalValue value;
};

/// One line of the recording, before it is written.
struct SJournalRecord
{
    EnJournalLine line = LineCall; ///< what the line is about
    bool bChange = false;          ///< a call that asks for a change
    bool bThrew = false;           ///< the library left the call by an exception
    bool bState = false;           ///< the fields say all that stands on the screen; the next file begins with the last of these
    const char* szObject = "";     ///< name of the control object, or of the part of the host; a literal
    const char* szOperation = "";  ///< a literal
    quint64 nNumber = 0;           ///< 1, 2, 3 … in the order of beginning, over all threads
    QByteArray thread;             ///< "gui", "worker-2", "pool-3", "other-4"
    qint64 nDate = 0;              ///< milliseconds since 1970, UTC, at the beginning
    std::chrono::steady_clock::time_point timeBegin;
    std::chrono::nanoseconds timeTaken{ 0 };
    std::vector<JournalValue> vecArgument; ///< of a call, in its order
    JournalValue result;                   ///< of a call, or what it has filled
    std::vector<SJournalField> vecField;   ///< of every other line
    std::vector<quint64> vecCause;         ///< of a message: the numbers of what may have caused it
};
