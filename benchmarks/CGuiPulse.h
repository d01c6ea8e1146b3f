#pragma once

#include <QObject>

#include <atomic>
#include <chrono>
#include <ctime>
#include <thread>

/// Measures how long the GUI thread lets an event wait: a thread posts one each two milliseconds while it lives, if there is none
/// under way. GUI thread.
class CGuiPulse : public QObject
{
public:
    CGuiPulse();
    ~CGuiPulse() override;

    /// Forgets what it has measured.
    void Clear()
    {
        timeLongest = timeBusiest = {};
    }

    /// The longest wait since then.
    std::chrono::microseconds GetLongest() const
    {
        return timeLongest;
    }

    /// The most that the GUI thread has worked while one event waited: what is left of a wait without the other programs of the
    /// machine.
    std::chrono::microseconds GetBusiest() const
    {
        return timeBusiest;
    }

protected:
    void customEvent(QEvent* event) override;

private:
    void Run();

    const clockid_t clockGui; ///< the time that the GUI thread has worked
    std::chrono::microseconds timeLongest{ 0 };
    std::chrono::microseconds timeBusiest{ 0 };
    std::atomic<bool> bWaits{ false }; ///< an event is under way
    std::atomic<bool> bEnd{ false };
    std::thread thread;
};
