#pragma once

#include "journal/recording/CCauses.h"
#include "journal/recording/CJournalWriter.h"
#include "journal/recording/ICallRecorder.h"

#include <atomic>

/// Gives each record its number, time and thread, and each message its causes, and hands it to the writer. Any thread.
class CJournalRecorder : public ICallRecorder
{
public:
    /// writerIn must outlive it.
    explicit CJournalRecorder(CJournalWriter& writerIn);

    void Begin(SJournalRecord& record) override;
    void Write(SJournalRecord&& record) override;

private:
    void Complete(SJournalRecord& record);

    CJournalWriter& writer;
    std::atomic<quint64> nLast{ 0 };
    CCauses causes;
};
