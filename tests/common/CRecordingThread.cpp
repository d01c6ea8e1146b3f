#include "CRecordingThread.h"

#include "Patience.h"

#include <memory>

namespace {

constexpr int nSteps = 97; ///< places between a start and its wait where a stop may fall

} // namespace

void CRecordingThread::Notify(int nMessage)
{
    {
        const std::lock_guard<std::mutex> lock(mutexQueue);
        listMessage.append(nMessage);
    }
    ActivateThread();
}

void CRecordingThread::ThreadStart()
{
    while (!bExit) {
        if (bIdle) {
            if (fnBeforeWait) {
                fnBeforeWait();
            }
            std::unique_lock<std::mutex> lock(mutexWake);
            nWaits++;
            condWake.wait(lock);
            continue;
        }
        nLastMessage = GetFrontType();
        nTaken++;
        if (RemoveFront() == 0) {
            bIdle = true;
        }
    }
    ThreadFinished();
    semaphoreEnded.release();
}

bool CRecordingThread::Join(std::thread& thread)
{
    const bool bInTime = semaphoreEnded.tryAcquire(1, nPatience);
    bInTime ? thread.join() : thread.detach();
    return bInTime;
}

int FirstHangingStop(int nCycles)
{
    for (int i = 0; i < nCycles; ++i) {
        auto pWorker = std::make_unique<CRecordingThread>();
        std::thread thread(&CRecordingThread::ThreadStart, pWorker.get());
        if (i % 2 == 0) {
            pWorker->Notify(1);
        }
        for (int nSpin = i % nSteps; nSpin > 0; --nSpin) {
            std::this_thread::yield();
        }
        pWorker->ThreadExit();
        if (!pWorker->Join(thread)) {
            pWorker.release(); // its loop still runs
            return i;
        }
    }
    return -1;
}
