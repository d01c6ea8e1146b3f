#pragma once

#include <QBasicTimer>
#include <QFile>
#include <QObject>

#include <chrono>

/// Beats each millisecond in the event loop of the thread on which it is made, and knows the longest gap between two beats. The
/// time in which the thread could have run and the machine ran others is not counted: a gap is what the thread worked or waited
/// for something itself.
class CHeartbeat : public QObject
{
public:
    CHeartbeat();

    /// Since it was made.
    std::chrono::milliseconds GetLongestGap() const;
    int GetBeats() const
    {
        return nBeats;
    }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::chrono::nanoseconds ReadTime();

    QFile fileTurns; ///< the kernel's count of the thread's time
    QBasicTimer timer;
    std::chrono::nanoseconds timeLast;
    std::chrono::nanoseconds timeLongest{ 0 };
    int nBeats = 0;
};
