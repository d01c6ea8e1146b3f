#pragma once

#include "interfaces/widgets/CObserver.h"
#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QList>
#include <QObject>
#include <QScopedPointer>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// An observer with a queue of messages and what its loop needs to sleep, to wake and to stop.
///
/// The derived class runs the loop in ThreadStart() on a QThread of its owner. The loop waits on
/// condWake once, without a predicate, so a stop could fall between its test of bExit and that wait.
/// ThreadExit() makes that harmless: a thread owned by this class repeats the wake-up until
/// ThreadFinished() was called or the object is destroyed.
///
/// The virtual operations behind those of QObject are Notify and ThreadStart, in this order.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CBaseThread : public QObject, public CObserver
{
    Q_OBJECT

public:
    explicit CBaseThread(QObject* parent = nullptr);
    ~CBaseThread() override;

    void Notify(int nMessage) override = 0;

    /// Asks the loop to end and returns at once. Any thread, any number of times, also when the loop
    /// never ran.
    void ThreadExit();

public slots:
    /// The loop; occupies its thread until the stop.
    virtual void ThreadStart() = 0;

protected:
    /// Clears bIdle and wakes the loop. Any thread.
    void ActivateThread();

    /// The oldest message, which stays in the queue; 0 when the queue is empty. The loop's thread.
    int GetFrontType();

    /// Removes the oldest message and returns how many are left. Removes nothing when GetFrontType has
    /// just found the queue empty: what came since then was not seen by the loop. The loop's thread.
    int RemoveFront();

    /// The loop's last step, once, on the loop's thread.
    void ThreadFinished();

    std::atomic<bool> bExit{ false }; ///< set by ThreadExit, read by the loop on each pass
    std::mutex mutexWake;             ///< guards the wait on condWake
    std::condition_variable condWake; ///< the loop sleeps on it
    std::atomic<bool> bIdle{ true };  ///< true: the loop may sleep; false: the queue has work
    std::mutex mutexQueue;            ///< guards listMessage and bFrontMissed
    QList<int> listMessage;           ///< message numbers, oldest first; guarded by mutexQueue

private:
    class CStopHelper;
    QScopedPointer<CStopHelper> pStopHelper;
    bool bFrontMissed = false; ///< the last GetFrontType found nothing; guarded by mutexQueue
};
