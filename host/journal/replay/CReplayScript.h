#pragma once

#include "journal/replay/CGuiCalls.h"
#include "journal/replay/CJobCalls.h"
#include "journal/replay/CReadSelections.h"
#include "journal/replay/CWorkerCalls.h"

#include <vector>

class CRecordedRun;

/// All that the recorded panel called, by thread, and what of it has come again. One thread at a time.
class CReplayScript
{
public:
    /// runIn must outlive it.
    explicit CReplayScript(const CRecordedRun& runIn);

    SReplayMatch Take(const SReplayedCall& call, const SReplayMoment& moment);

    /// The first call before that number that has to come and has not; null for none.
    const SRecordedLine* FindMissing(quint64 nBefore) const;

    /// The same of the worker, and of the GUI thread.
    const SRecordedLine* FindMissingOfWorker(quint64 nBefore) const;
    const SRecordedLine* FindMissingOfGui(quint64 nBefore) const;

    /// Calls that are excused when they do not come have not, before that number.
    bool HasOpenExcused(quint64 nBefore) const;

    /// Waits for those of them no more that are refreshes.
    void SkipExcused(quint64 nBefore);

private:
    void Append(const SRecordedLine& line);
    CWorkerCalls& GetWorker(const QString& strThread);
    SReplayMatch TakeByClass(const SReplayedCall& call, const SReplayMoment& moment);
    const SRecordedLine* FindElsewhere(const SReplayedCall& call, const SReplayMoment& moment) const;

    const CReadSelections selections;
    const bool bOpenEnd;
    CGuiCalls gui;
    std::vector<CWorkerCalls> vecWorker; ///< in the order of their first calls
    CJobCalls pool;
    CJobCalls other;
    QVector<QString> vecRecordedWorker; ///< the names of their threads
    QVector<QString> vecReplayedWorker;
};
