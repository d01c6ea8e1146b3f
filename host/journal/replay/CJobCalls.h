#pragma once

#include "journal/replay/CExpectedCalls.h"
#include "journal/replay/SReplayMatch.h"
#include "journal/replay/SReplayMoment.h"

#include <QHash>

/// What the jobs of the recorded panel called on threads of one kind. Such a thread may serve several jobs, so the calls are
/// compared job by job; each ends with SetBusy(false). One thread at a time.
class CJobCalls
{
public:
    /// bOpenEndIn as CGuiCalls.
    explicit CJobCalls(bool bOpenEndIn) : bOpenEnd(bOpenEndIn) { }

    void Append(const SRecordedLine& line);

    SReplayMatch Take(const SReplayedCall& call, const SReplayMoment& moment);
    const SRecordedLine* FindMissing(quint64 nBefore) const;

    /// The first call of a job that has not begun, if it is this one.
    const SRecordedLine* FindSame(const SReplayedCall& call, const CReplayIds& ids) const;

private:
    SReplayMatch Begin(const SReplayedCall& call, const SReplayMoment& moment);
    SReplayMatch Refuse(const SReplayedCall& call, const SReplayMoment& moment, const SRecordedLine* pExpected) const;
    SReplayMatch Accept(const QString& strThread, int nJob, int nAt);

    const bool bOpenEnd;
    QVector<CExpectedCalls> vecJob;
    QHash<QString, int> mapRecorded; ///< the job that a recorded thread was at last
    QHash<QString, int> mapRunning;  ///< the job that a thread of this panel is at
};
