#pragma once

#include "journal/replay/SRecordedLine.h"
#include "journal/replay/SReplayedCall.h"

#include <QVector>

class CReplayIds;

/// Recorded calls of one thread or job in their order, and which of them have been made again. One thread at a time.
class CExpectedCalls
{
public:
    /// Who waits for a call that has not been made.
    enum EnState
    {
        Open,    ///< it is expected
        Made,    ///< it has come
        Skipped, ///< it was excused
    };

    /// bExcused: it need not come.
    void Append(const SRecordedLine& line, bool bExcused = false);

    int GetSize() const;
    const SRecordedLine& GetLine(int nAt) const;
    EnState GetState(int nAt) const;
    void SetState(int nAt, EnState state);

    /// The call at that place is this one. Match notes the ids that the panel made.
    bool Match(int nAt, const SReplayedCall& call, CReplayIds& ids) const;
    bool WouldMatch(int nAt, const SReplayedCall& call, const CReplayIds& ids) const;

    /// The first open one from there on, with bExcused false the first that has to come; GetSize() for none.
    int FindOpen(int nFrom, bool bExcused) const;
    bool IsExcused(int nAt) const;

    /// The tool bar asks for the state of Delete, at every change that the panel hears of.
    static bool IsQuestion(const QString& strOperation);

private:
    struct SExpected
    {
        const SRecordedLine* pLine;
        EnState state;
        bool bExcused;
    };

    bool IsSameOperation(int nAt, const SReplayedCall& call) const;

    QVector<SExpected> vecExpected;
};
