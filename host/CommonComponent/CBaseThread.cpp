#include "interfaces/widgets/CBaseThread.h"

#include <chrono>
#include <thread>

namespace {

/// How long a stop can be late when its first wake-up fell into the gap before the wait.
constexpr std::chrono::milliseconds timeRepeat{ 1 };

} // namespace

/// Repeats the wake-up of a stop until the loop has ended.
class CBaseThread::CStopHelper
{
public:
    explicit CStopHelper(std::condition_variable& condWakeIn) : condWake(condWakeIn) { }

    ~CStopHelper()
    {
        Finish();
        if (thread.joinable()) {
            thread.join();
        }
    }

    void Start()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!bFinished && !thread.joinable()) {
            thread = std::thread(&CStopHelper::Repeat, this);
        }
    }

    void Finish()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bFinished = true;
        condFinished.notify_all();
    }

private:
    void Repeat()
    {
        std::unique_lock<std::mutex> lock(mutex);
        while (!bFinished) {
            condWake.notify_all();
            condFinished.wait_for(lock, timeRepeat);
        }
    }

    std::condition_variable& condWake;
    std::mutex mutex; ///< guards bFinished and thread
    std::condition_variable condFinished;
    std::thread thread;
    bool bFinished = false;
};

CBaseThread::CBaseThread(QObject* parent) : QObject(parent), pStopHelper(new CStopHelper(condWake)) { }

CBaseThread::~CBaseThread() = default;

void CBaseThread::ThreadExit()
{
    bExit = true;
    condWake.notify_all();
    pStopHelper->Start();
}

void CBaseThread::ActivateThread()
{
    bIdle = false;
    condWake.notify_all();
}

int CBaseThread::GetFrontType()
{
    const std::lock_guard<std::mutex> lock(mutexQueue);
    bFrontMissed = listMessage.isEmpty();
    return bFrontMissed ? 0 : listMessage.constFirst();
}

// A late wake-up makes the loop look into an empty queue. A message that comes between that look and this
// removal was not served: it stays, and the count of 1 makes the loop come back for it.
int CBaseThread::RemoveFront()
{
    const std::lock_guard<std::mutex> lock(mutexQueue);
    if (!bFrontMissed && !listMessage.isEmpty()) {
        listMessage.removeFirst();
    }
    bFrontMissed = false;
    return listMessage.size();
}

void CBaseThread::ThreadFinished()
{
    pStopHelper->Finish();
}
