#pragma once

#include "CorvidControl/file/SListClock.h"

#include <atomic>

/// A clock that stands until the test moves it on. Any thread may read it.
class CListTime
{
public:
    SListClock GetClock()
    {
        SListClock clock;
        clock.now = [this] {
            ++nAsked;
            return std::chrono::steady_clock::time_point(std::chrono::milliseconds(nPassed.load()));
        };
        clock.date = [this] { return dateStart.addMSecs(nPassed + nSetBy); };
        return clock;
    }
    void Pass(std::chrono::milliseconds time)
    {
        nPassed += time.count();
    }

    /// How often anybody has asked for what has passed.
    int GetAsked() const
    {
        return nAsked;
    }

    /// Somebody sets the date of the machine; what has passed stays as it is.
    void SetDateBy(std::chrono::seconds time)
    {
        nSetBy += std::chrono::milliseconds(time).count();
    }

private:
    const QDateTime dateStart{ QDate(2024, 5, 1), QTime(12, 0) };
    std::atomic<qint64> nPassed{ 1000 };
    std::atomic<qint64> nSetBy{ 0 };
    std::atomic<int> nAsked{ 0 };
};
