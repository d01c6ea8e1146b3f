#pragma once

#include "CorvidControl/objects/CControlClock.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

/// Saves the list soon after it was changed, on a thread of its own: timeQuiet after the last change,
/// at the latest timeLongest after the first. A save that failed is tried again after timeLongest. All
/// operations may be called on any thread.
class CListKeeper
{
public:
    static constexpr std::chrono::seconds timeQuiet{ 1 };
    static constexpr std::chrono::seconds timeLongest{ 5 };

    /// saveIn runs on the keeper's thread, without a lock, and returns false when it has to be tried again.
    /// clockIn must outlive the keeper.
    CListKeeper(const std::function<bool()>& saveIn, const CControlClock& clockIn = CControlClock::GetSystem());

    /// As Stop.
    ~CListKeeper();

    /// The list was changed. Never waits for the disk.
    void Touch();

    /// Saves what waits, ends and joins the thread. Not from within saveIn; a second time does nothing.
    void Stop();

private:
    using Lock = std::unique_lock<std::mutex>; ///< whoever takes one as a parameter works under it
    using Time = CControlClock::Time;

    void Run();
    void SaveNow(Lock& lock);
    std::optional<Time> FindDue(const Lock& lock) const;

    const std::function<bool()> save;
    const CControlClock& clock;

    std::mutex mutex; ///< guards all fields below but threadSave; never held while saving
    std::condition_variable condWork;
    std::optional<Time> timeFirst; ///< of the changes that wait; none when none waits
    Time timeLast;
    bool bStop = false;

    std::thread threadSave;
};
