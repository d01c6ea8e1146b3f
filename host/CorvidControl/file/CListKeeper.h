#pragma once

#include "CorvidControl/file/SListClock.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

/// Has the list saved soon after it was changed, on a thread of its own: timeQuiet after the last change,
/// at the latest timeLongest after the first. A save that failed is tried again after timeLongest. All
/// operations may be called on any thread.
class CListKeeper
{
public:
    static constexpr std::chrono::seconds timeQuiet{ 1 };
    static constexpr std::chrono::seconds timeLongest{ 5 };

    /// saveIn runs without a lock and answers false when it has to be tried again.
    CListKeeper(const std::function<bool()>& saveIn, const SListClock& clockIn);

    /// As Stop.
    ~CListKeeper();

    /// The list was changed. Never waits for the disk.
    void Touch();

    /// Looks at the clock again, which else happens when it should be time: for a clock that jumps.
    void Wake();

    /// Saves what waits, ends and joins the thread.
    void Stop();

private:
    using Lock = std::unique_lock<std::mutex>; ///< whoever takes one as a parameter works under it
    using Time = std::chrono::steady_clock::time_point;

    void Run();
    void SaveNow(Lock& lock);
    std::optional<Time> FindDue(const Lock& lock) const;

    const std::function<bool()> save;
    const SListClock clock;

    std::mutex mutex; ///< guards all fields below but threadSave; never held while saving
    std::condition_variable condWork;
    std::optional<Time> timeFirst; ///< of the changes that wait; none when none waits
    Time timeLast;
    bool bStop = false;

    std::thread threadSave;
};
