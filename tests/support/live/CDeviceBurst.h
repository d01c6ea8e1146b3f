#pragma once

#include <QList>
#include <QUuid>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class CControlLibrary;

/// Events of devices from eight threads, each with devices of its own: they drop out and come back, change role and project, each
/// time to another state than before. One event in ten is of another kind: a fold, a Chief, a mode, a lock, a project.
class CDeviceBurst
{
public:
    static constexpr int nThreads = 8;

    /// Starts at once. nEvents spread evenly over time; none raises them as fast as they go. What goes on with nFirst where an
    /// earlier burst has ended changes each device again. libraryIn must outlive the burst.
    CDeviceBurst(CControlLibrary& libraryIn, bool bMixedIn, int nEventsIn, std::chrono::milliseconds timeIn, int nFirstIn = 0);

    /// As Join.
    ~CDeviceBurst();
    CDeviceBurst(const CDeviceBurst&) = delete;
    CDeviceBurst& operator=(const CDeviceBurst&) = delete;

    /// Whether the library has taken the last event.
    bool IsOver() const;

    /// Raises no more.
    void Stop();

    /// Waits for the last event, unless it was stopped.
    void Join();

private:
    void Run(int nThread);
    bool AwaitTurn(std::chrono::steady_clock::time_point timeTurn);
    void Raise(int nThread, int nEvent);
    void RaiseOther(int nEvent);

    CControlLibrary& library;
    const bool bMixed;
    const int nEvents;
    const std::chrono::milliseconds time;
    const int nFirst;
    QList<QUuid> listDevice;
    QList<QUuid> listGroup;
    std::atomic<int> nRunning{ nThreads };
    std::mutex mutex; ///< guards bStop
    std::condition_variable condStop;
    bool bStop = false;
    std::vector<std::thread> vecThread;
};
