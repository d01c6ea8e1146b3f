#pragma once

#include "journal/replay/SRecordedLine.h"

/// What a call of the panel is in the recording.
struct SReplayMatch
{
    const SRecordedLine* pLine = nullptr;     ///< whose answer it gets; null: that for an unknown id
    quint64 nGate = 0;                        ///< it goes on when all before that number is done; 0 for at once
    QString strFault;                         ///< how it differs, a sentence; empty when it does not
    const SRecordedLine* pExpected = nullptr; ///< what it differs from; null for nothing
    quint64 nLock = 0;                        ///< of a refresh: when the recorded panel compared it; 0 for any other call
    bool bRecorded = false;                   ///< of a call on the GUI thread: pLine is this call, not only its answer
};
