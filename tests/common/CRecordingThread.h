#pragma once

#include "interfaces/widgets/CBaseThread.h"

#include <QSemaphore>

#include <functional>
#include <thread>

/// The loop that the panel runs on the base class, with a record of what it took out of the queue.
class CRecordingThread : public CBaseThread
{
    Q_OBJECT

public:
    using CBaseThread::ActivateThread;
    using CBaseThread::bIdle;
    using CBaseThread::GetFrontType;
    using CBaseThread::RemoveFront;

    void Notify(int nMessage) override;
    void ThreadStart() override;

    /// True when the loop on the thread has ended in time. A thread that hangs is left alone, since nothing
    /// can end it.
    bool Join(std::thread& thread);

    std::function<void()> fnBeforeWait; ///< runs in the gap between the test of bIdle and the wait
    std::atomic<int> nWaits{ 0 };
    std::atomic<int> nTaken{ 0 };
    std::atomic<int> nLastMessage{ -1 };

private:
    QSemaphore semaphoreEnded; ///< released when the loop is left
};

/// Starts and stops that many loops, each stop a little later after its start than the one before. Returns the
/// number of the first stop that hangs, or -1.
int FirstHangingStop(int nCycles);
