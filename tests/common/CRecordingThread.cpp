#include "CRecordingThread.h"

#include "Patience.h"

#include <chrono>
#include <memory>

namespace {

constexpr int nSteps = 97; // microseconds from a start to its wait, in each of which a stop may fall

/// Stays on its processor: a thread that yields on an overloaded machine comes back milliseconds later.
void Spin(std::chrono::microseconds time)
{
    const auto timeEnd = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < timeEnd) { }
}

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
        Spin(std::chrono::microseconds(i % nSteps));
        pWorker->ThreadExit();
        if (!pWorker->Join(thread)) {
            pWorker.release(); // its loop still runs
            return i;
        }
    }
    return -1;
}
