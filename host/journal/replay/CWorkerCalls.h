#pragma once

#include "journal/replay/CExpectedCalls.h"
#include "journal/replay/SReplayMatch.h"
#include "journal/replay/SReplayMoment.h"

/// What a worker of the recorded panel called: refreshes, each a fixed sequence of reads from GetDiscoveredTree to
/// IsSimulatorPane, and at the end its unsubscriptions. One thread at a time.
class CWorkerCalls
{
public:
    /// bOpenEndIn as CGuiCalls.
    explicit CWorkerCalls(bool bOpenEndIn) : bOpenEnd(bOpenEndIn) { }

    /// What comes before the first refresh is passed over: a recording may begin in the middle of one.
    void Append(const SRecordedLine& line);

    SReplayMatch Take(const SReplayedCall& call, const SReplayMoment& moment);

    /// The first call before that number that has to come. A refresh with the answers of the one before need not, unless
    /// it is the last one.
    const SRecordedLine* FindMissing(quint64 nBefore) const;

    /// A refresh that need not come has not.
    bool HasOpenRepeat(quint64 nBefore) const;

    /// Passes over those.
    void SkipRepeats(quint64 nBefore);

    const SRecordedLine* FindSame(const SReplayedCall& call, const CReplayIds& ids) const;

private:
    struct SReading
    {
        int nFirst = 0;
        int nCount = 0;
    };

    bool IsRepeat(int nReading) const;
    bool IsExcused(int nReading) const;
    int FindReading() const;
    SReplayMatch Accept(int nAt);
    SReplayMatch BeginReading(const SReplayedCall& call, const SReplayMoment& moment);
    bool IsBehindLost(const SReplayedCall& call, const SReplayMoment& moment) const;
    SReplayMatch GoOnRepeating(const SReplayedCall& call);
    SReplayMatch Refuse(const SReplayedCall& call, const SReplayMoment& moment) const;
    quint64 GetGate(int nAt) const;
    quint64 GetLock(int nAt) const;

    bool bOpenEnd;
    CExpectedCalls calls;
    QVector<SReading> vecReading;
    int nNext = 0;       ///< the place that comes next
    int nRepeating = -1; ///< in a refresh that the recording does not have: the place in the last one that it has
};
