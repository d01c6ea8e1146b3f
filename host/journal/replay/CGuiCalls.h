#pragma once

#include "journal/replay/CExpectedCalls.h"
#include "journal/replay/SReplayMatch.h"
#include "journal/replay/SReplayMoment.h"

/// What the recorded panel called on the GUI thread. One thread at a time.
class CGuiCalls
{
public:
    /// bOpenEndIn: the recording broke off, and more may come than it has.
    explicit CGuiCalls(bool bOpenEndIn) : bOpenEnd(bOpenEndIn) { }

    /// bExcused: when it comes, and whether, depends on time.
    void Append(const SRecordedLine& line, bool bExcused);

    /// bExcused: of this call, too.
    SReplayMatch Take(const SReplayedCall& call, const SReplayMoment& moment, bool bExcused);

    /// The first call before that number that has to come; null for none.
    const SRecordedLine* FindMissing(quint64 nBefore) const;

    /// The same among all.
    bool HasOpen(quint64 nBefore) const;

    /// The first one that has to come and is this call; null for none.
    const SRecordedLine* FindSame(const SReplayedCall& call, const CReplayIds& ids) const;

private:
    SReplayMatch Accept(int nAt);
    int FindExcused(const SReplayedCall& call, const SReplayMoment& moment) const;
    SReplayMatch Refuse(const SReplayedCall& call, const SReplayMoment& moment);
    int FindSameAt(const SReplayedCall& call, const CReplayIds& ids) const;

    const bool bOpenEnd;
    CExpectedCalls calls;
    int nNext = 0; ///< the first one that has not been made or passed over
};
