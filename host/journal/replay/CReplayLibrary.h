#pragma once

#include "journal/SControlPointers.h"
#include "journal/replay/SReplayDifference.h"

#include <QObject>
#include <QUuid>

#include <chrono>
#include <memory>

class CHostAnswers;
class CRecordedRun;
class CReplayCore;
class CReplayObjects;

/// A control library that answers from a recorded run, and compares what the panel calls with it.
///
/// The panel is driven by its messages, by Deliver, and by gestures, which the caller plays. Before each it waits for
/// HasCaughtUp. Calls are compared by thread: "gui" and "worker" in their order; those of the pool and of threads of their
/// own job by job, as each ends with SetBusy(false). A call that differs is answered as for an unknown id, and the replay
/// goes on, compared no more: what is asked then is answered as the recording answers it at that time.
///
/// What is excused, as it depends on time:
/// - a refresh that repeats the answers of the one before may come or not;
/// - the questions of the tool bar, IsDeleteBlocked and IsNodeInUse, on nodes that were selected: how often, and when between
///   two commands;
/// - SetSelectedNodes on the GUI thread with a selection that the worker has just read, or, behind a refresh, the last one once
///   more: the panel hands it back when it hears of a change;
/// - of a masked run, texts, paths and addresses in arguments; they are not compared;
/// - what the panel calls behind the end of a run that broke off, and behind lines that are lost.
///
/// Ids that the panel makes are matched by their order, in both directions. GetListFilePath names a file in a folder of the
/// library's own, as the panel may remove it; as an argument it stands for the recorded path.
///
/// Calls on other threads than the GUI thread are held back until every message has been delivered that came before them in the
/// recording, and every command of the GUI thread that came before and is not excused has been made. Never held back are calls on
/// the GUI thread; IsSimulatorPane, which the worker calls with the store's lock; and Detach, for which the GUI thread waits. A
/// call that never came back is held until Release. No lock is held while an observer is notified, while a call is held back, or
/// while Differed is emitted.
class CReplayLibrary : public QObject
{
    Q_OBJECT

public:
    /// runIn must outlive it. GUI thread.
    explicit CReplayLibrary(const CRecordedRun& runIn);

    /// After the panel and its jobs. Releases what is held back and waits until no call is inside.
    ~CReplayLibrary() override;

    /// For the panel: what is called here is compared.
    SControlPointers GetPointers();

    /// For the host: the same answers as they stand at the time, without comparison, and never held back.
    SControlPointers GetHostPointers();

    /// For a run without its beginning, once the panel is there: a message that makes it read the state at its start. Until it
    /// has, HasCaughtUp is false; what it calls until the first Deliver is not compared.
    void ShowFirstState();

    /// A message, or any other line that HasCaughtUp was asked about, is due. Messages go to those who are attached to their
    /// object, on a thread that is not the GUI thread unless it was so in the recording; that one returns after them. GUI
    /// thread, in the order of the numbers.
    void Deliver(const SRecordedLine& line);

    /// Every call before that number that is not excused has been made, and every message so far delivered. Before a step of the
    /// user, also what comes between it and its first command. Asking says that everything before that number has been played.
    /// With an event loop running in between, until it is true; what is excused is waited for a quarter of a second.
    bool HasCaughtUp(quint64 nNumber) const;

    /// The caller waits no longer for what HasCaughtUp misses: the first such call before that number is the difference.
    void Miss(quint64 nNumber);

    /// Nothing is held back any more. Before the panel goes, which waits for its worker.
    void Release();

    /// After Release, when the panel has gone. False when a job that it has begun did not say in time that it has ended: a
    /// deletion lives on a thread of its own, and calls until then.
    bool AwaitJobs(std::chrono::milliseconds timeMost);

    /// The id of the panel of now for one that the recorded panel made; every other is its own.
    QUuid GetPanelId(const QUuid& idRecorded) const;

    bool HasDiffered() const;

signals:
    /// The first call that differs, on the thread that made it, or, of a missing one, that found it. Once.
    void Differed(const SReplayDifference& difference);

private:
    std::unique_ptr<CReplayCore> pCore;
    std::unique_ptr<CHostAnswers> pHostAnswers;
    std::unique_ptr<CReplayObjects> pPanelObjects;
    std::unique_ptr<CReplayObjects> pHostObjects;
};
