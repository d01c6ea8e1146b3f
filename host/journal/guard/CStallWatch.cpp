#include "journal/guard/CStallWatch.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

constexpr std::chrono::milliseconds timeBetween{ 10 };
constexpr std::chrono::milliseconds timeStopped{ 500 }; ///< as long as that no thread waits for its turn

QEvent::Type GetPingType()
{
    static const int nType = QEvent::registerEventType();
    return static_cast<QEvent::Type>(nType);
}

} // namespace

CStallWatch::CStallWatch(const std::function<void()>& fnBegunIn) : fnBegun(fnBegunIn)
{
    QCoreApplication::instance()->installEventFilter(this);
    thread = std::thread([this] { Run(); });
}

CStallWatch::~CStallWatch()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bEnd = true;
        cond.notify_one();
    }
    thread.join();
}

// At every event of the program: a store and a load while the thread is awake, in this order for all threads: one of the two
// sees what the other has set.
bool CStallWatch::eventFilter(QObject* watched, QEvent* event)
{
    Q_UNUSED(event)
    if (watched == this) {
        return false;
    }
    bSeen = true;
    if (bAsleep) {
        const std::lock_guard<std::mutex> lock(mutex);
        bAsleep = false;
        timePing = Clock::now();
        cond.notify_one();
    }
    return false;
}

int CStallWatch::GetPings() const
{
    return nPings;
}

bool CStallWatch::event(QEvent* event)
{
    if (event->type() == GetPingType()) {
        Answer();
        return true;
    }
    return QObject::event(event);
}

void CStallWatch::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!bEnd) {
        if (bPending) {
            LookAtPing();
        } else if (bSeen.exchange(false)) {
            timePing = Clock::now();
            Ping();
        } else {
            Rest(lock);
        }
        timeLook = Clock::now();
        cond.wait_until(lock, timeLook + timeBetween, [this] { return bEnd; });
        timePing += GetStopped();
    }
}

// Until there is an event, whose time is that of the ping.
void CStallWatch::Rest(std::unique_lock<std::mutex>& lock)
{
    timePing = Clock::now();
    bAsleep = true;
    if (!bSeen) { // an event before that did not see that anybody sleeps
        cond.wait(lock, [this] { return bEnd || !bAsleep; });
    }
    bAsleep = false;
    bSeen = false;
    if (!bEnd) {
        Ping();
    }
}

// With the lock held, while a look is due: this thread too got no turn for so long.
CStallWatch::Clock::duration CStallWatch::GetStopped() const
{
    const Clock::duration time = Clock::now() - timeLook - timeBetween;
    return time > timeStopped ? time : Clock::duration::zero();
}

// With the lock held.
void CStallWatch::Ping()
{
    bPending = true;
    bTold = false;
    timeLook = Clock::now();
    ++nPings;
    QCoreApplication::postEvent(this, new QEvent(GetPingType()));
}

// With the lock held.
void CStallWatch::LookAtPing()
{
    if (!bTold && Clock::now() - timePing > timeLimit) {
        bTold = true;
        fnBegun();
    }
}

void CStallWatch::Answer()
{
    std::chrono::milliseconds time{ 0 };
    {
        const std::lock_guard<std::mutex> lock(mutex);
        time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - timePing - GetStopped());
        bPending = false;
    }
    if (time > timeLimit) {
        emit Stalled(time.count());
    }
}
