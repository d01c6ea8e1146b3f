#pragma once

#include "interfaces/widgets/CObserver.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

/// An observer that does something in its first Notify and says whether that has come to its end. It is never
/// destroyed: what a library does with it after Detach must not end in memory that is gone.
class CBusyObserver final : public CObserver
{
public:
    explicit CBusyObserver(const std::function<void()>& actionIn) : action(actionIn) { }

    void Notify(int nMessage) override;

    bool AwaitStart(std::chrono::milliseconds time); ///< of the first Notify
    bool AwaitEnd(std::chrono::milliseconds time);   ///< of the first Notify
    bool IsRunning() const;                          ///< a Notify is
    int GetCount() const;                            ///< of the Notify calls so far

private:
    const std::function<void()> action;
    mutable std::mutex mutex; ///< guards all below; not held during the action
    std::condition_variable cond;
    int nCount = 0;
    int nRunning = 0;
    bool bEnded = false;
};
