#pragma once

#include <QObject>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Notices when the event loop of the GUI thread stands still, by a thread of its own and the steady clock.
///
/// While there are events, it posts one to itself every ten milliseconds and sees how long that waits; while there are none
/// it sleeps. So a stall is measured up to ten milliseconds too short, one that ends a time of rest exactly. A time in which
/// the whole program was stopped, by a debugger or the machine, is none. Made and destroyed on the GUI thread.
class CStallWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds timeLimit{ 100 };

    /// fnBegunIn is called on the watching thread as soon as a stall passes the limit, with a lock held that the GUI thread may
    /// wait for: it must not wait for anything.
    explicit CStallWatch(const std::function<void()>& fnBegunIn);
    ~CStallWatch() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Events that it has posted so far; any thread.
    int GetPings() const;

signals:
    /// A stall longer than the limit is over. On the GUI thread.
    void Stalled(qint64 nMilliseconds);

protected:
    bool event(QEvent* event) override;

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    void Rest(std::unique_lock<std::mutex>& lock);
    Clock::duration GetStopped() const;
    void Ping();
    void LookAtPing();
    void Answer();

    const std::function<void()> fnBegun;
    std::atomic<bool> bSeen{ false };   ///< an event since the last ping
    std::atomic<bool> bAsleep{ false }; ///< the thread waits for an event
    std::atomic<int> nPings{ 0 };

    std::mutex mutex; ///< guards all below but the thread
    std::condition_variable cond;
    Clock::time_point timePing;
    Clock::time_point timeLook; ///< when the watching thread was last awake
    bool bPending = false;      ///< the ping is not answered yet
    bool bTold = false;         ///< it is over the limit, and fnBegun was called
    bool bEnd = false;

    std::thread thread;
};
