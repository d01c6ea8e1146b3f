#pragma once

#include "CRecordedSession.h"
#include "journal/replay/CRecordedRun.h"
#include "journal/replay/CReplayLibrary.h"

#include <functional>

/// A recorded session played to a new panel: messages in their order, and the user's steps by what is given for them.
class CReplayedSession
{
public:
    /// How long what is missing is waited for, in milliseconds, before it counts as missing.
    int nMostWait = 20000;

    /// Looks at, or changes, the library before a line is delivered.
    std::function<void(CReplayLibrary&, const SRecordedLine&)> fnBefore;

    /// Whether the simulators were shown where a run without its beginning starts.
    static bool BeginsWithSimulators(const CRecordedRun& run);

    /// Plays all of it and ends the panel.
    void Play(const CRecordedRun& run, const std::vector<SSessionStep>& vecStep);

    /// What differed, or which step could not be taken; empty for nothing.
    QString GetFault() const;
    const std::vector<SReplayDifference>& GetDifferences() const;

    /// As CRecordedSession.
    QString GetText() const;

private:
    /// What is being played.
    struct SPlay
    {
        const QVector<SRecordedLine>& vecLine;
        const std::vector<SSessionStep>& vecStep;
        CReplayLibrary& library;
        CPanelSession& session;
        quint64 nTeardown;
        int nNext = 0; ///< line
    };

    void PlayLines(SPlay& play, bool bToAnswer);
    int PlayLine(SPlay& play);
    void TakeStep(SPlay& play, int nStep);
    void Await(CReplayLibrary& library, quint64 nNumber) const;

    std::vector<SReplayDifference> vecDifference;
    QString strUnready; ///< a step that could not be taken; empty for none
    QString strText;
};
