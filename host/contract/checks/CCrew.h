#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// Threads that make calls over and over, and what the longest of them took. A thread whose call never returns is left
/// behind: the process of an attempt ends with it.
class CCrew
{
public:
    struct SCall
    {
        QString strName;
        std::function<void(int nTurn)> call;
        std::chrono::milliseconds timeMost{ 0 }; ///< that it may take; 0: as long as it likes
    };

    /// One more thread, which makes these calls in turn.
    void Add(const std::vector<SCall>& vecCall);

    /// Runs all for that time, then waits for those that may not take longer. The call that took longer than it may, in a
    /// sentence; empty when none did.
    QString Run(std::chrono::milliseconds time);

private:
    struct SWorker
    {
        std::vector<SCall> vecCall;
        std::mutex mutex; ///< guards all below
        QString strSlow;
        const SCall* pRunning = nullptr;
        std::chrono::steady_clock::time_point timeStart;
    };

    static void Work(const std::shared_ptr<SWorker>& pWorker, const std::shared_ptr<std::atomic<bool>>& pStop);
    static void Make(SWorker& worker, const SCall& call, int nTurn);
    static QString FindFault(SWorker& worker);

    std::vector<std::shared_ptr<SWorker>> vecWorker;
};
