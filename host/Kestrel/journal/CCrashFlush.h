#pragma once

#include <QtGlobal>

class CJournalWriter;

/// Gives the journal's thread up to a second to write what waits when the program is about to die: by abort, by a fault in its
/// code, also an overflow of the GUI thread's stack, by SIGQUIT, or by exit() somewhere below. One at a time; GUI thread.
class CCrashFlush
{
public:
    /// writer must outlive it, and be open.
    explicit CCrashFlush(const CJournalWriter& writer);
    ~CCrashFlush();
    Q_DISABLE_COPY(CCrashFlush)
};
