#pragma once

#include "journal/replay/CAnswerBook.h"
#include "journal/replay/CLineIndex.h"
#include "journal/replay/CPanelWrites.h"
#include "journal/replay/CReplayHub.h"
#include "journal/replay/CReplayIds.h"
#include "journal/replay/CReplayScript.h"
#include "journal/replay/IReplayAnswers.h"
#include "journal/replay/SReplayDifference.h"

#include <QTemporaryDir>

#include <chrono>
#include <functional>

class CRecordedRun;

/// Answers the panel from a recorded run, holds back what comes too early, and finds the first call that differs. Any thread
/// but where a method says otherwise.
class CReplayCore : public IReplayAnswers
{
public:
    using FnDiffered = std::function<void(const SReplayDifference&)>;

    /// fnDifferedIn is called once, without a lock. runIn must outlive it.
    CReplayCore(const CRecordedRun& runIn, const FnDiffered& fnDifferedIn);

    ~CReplayCore() override;
    Q_DISABLE_COPY(CReplayCore)

    /// Releases, and waits until no call is inside.
    void Close();

    SReplayAnswer Answer(const SReplayedCall& call) override;
    void Attach(const QString& strObject, CObserver* pObserver) override;
    void Detach(const QString& strObject, CObserver* pObserver) override;

    /// For the host: what stands there now.
    SReplayAnswer AnswerHost(const SReplayedCall& call);

    // As CReplayLibrary.
    void ShowFirstState();
    void Deliver(const SRecordedLine& line);
    bool HasCaughtUp(quint64 nNumber);
    void Miss(quint64 nNumber);
    void Release();
    bool AwaitJobs(std::chrono::milliseconds timeMost);
    QUuid GetPanelId(const QUuid& idRecorded) const;
    bool HasDiffered() const;

private:
    using Time = std::chrono::steady_clock::time_point;
    using Lock = std::unique_lock<std::mutex>;

    SReplayMatch Take(const SReplayedCall& call, const Lock& lock);
    void Await(const SReplayMatch& match, const SReplayedCall& call, Lock& lock);
    void Report(const SReplayDifference& difference, Lock& lock);
    SReplayAnswer MakeAnswer(const SRecordedLine* pLine, const Lock& lock);
    SReplayAnswer MakeAnswer(const SReplayMatch& match, const SReplayedCall& call, const Lock& lock);
    quint64 GetDemanded(quint64 nNumber, const Lock& lock) const;
    bool IsOpen(quint64 nNumber, const Lock& lock) const;
    bool IsReady(quint64 nNumber, const Lock& lock);
    bool IsQuietFor(std::chrono::milliseconds time, const Lock& lock) const;
    void Nudge(quint64 nNumber, const Lock& lock);
    bool IsOfEarlierMessage(const SRecordedLine& line) const;
    void MoveTo(quint64 nNumber, const Lock& lock);

    const CRecordedRun& run;
    const FnDiffered fnDiffered;
    const CAnswerBook book;
    const CLineIndex index;
    const QTemporaryDir folder; ///< for the list that the panel may remove

    /// Guards all below but the hub. Held for a look-up, never while an observer runs, a call is held back or a difference is
    /// reported.
    mutable std::mutex mutex;
    std::condition_variable condMoved; ///< something goes on, or a call has left
    CReplayIds ids;
    CReplayScript script;
    CPanelWrites writes;
    quint64 nDue = 0;   ///< everything before that number has been delivered or played
    Time timeLast;      ///< the last call, or message
    Time timeRead;      ///< the end of the last refresh
    int nInside = 0;    ///< calls
    int nJobs = 0;      ///< begun and not ended, as the panel says by SetBusy
    bool bFirstState;   ///< only the state that the recording begins with is shown yet
    bool bRead = false; ///< and the panel has read it
    bool bReleased = false;
    bool bDiffered = false;

    CReplayHub hub; ///< has a lock of its own
};
