#pragma once

#include <QBasicTimer>
#include <QFile>
#include <QObject>

#include <atomic>
#include <chrono>
#include <thread>

/// Beats each millisecond in the event loop of the thread on which it is made, and knows the longest gap between two beats. The
/// time in which the machine ran others, or nothing at all, is not counted: a gap is what the thread worked or waited for
/// something itself.
class CHeartbeat : public QObject
{
public:
    CHeartbeat();
    ~CHeartbeat() override;

    /// Since it was made.
    std::chrono::milliseconds GetLongestGap() const;

    /// The longest gap, and what of it was whose, for a test that fails.
    QString GetText() const;

    int GetBeats() const
    {
        return nBeats;
    }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// What has passed until a moment.
    struct SPassed
    {
        std::chrono::nanoseconds timeClock;  ///< by the clock
        std::chrono::nanoseconds timeWorked; ///< on a processor
        std::chrono::nanoseconds timeTurn;   ///< ready to run, and another ran
        std::chrono::nanoseconds timeHeld;   ///< when a thread that only sleeps was not woken in time

        SPassed operator-(const SPassed& earlier) const;
        std::chrono::nanoseconds GetOwn() const;
    };

    SPassed ReadPassed();
    void RunPacer();

    QFile fileTurns; ///< the kernel's count of the thread's time
    QBasicTimer timer;
    SPassed passedLast;
    SPassed longest{};
    int nBeats = 0;

    std::atomic<bool> bEnd{ false };
    std::atomic<std::chrono::nanoseconds> timeHeld{ std::chrono::nanoseconds(0) };
    std::thread pacer;
};
