#pragma once

#include <QElapsedTimer>

#include <functional>
#include <utility>

/// Knows when a count has stood still for a tenth of a second, which is longer than the refreshes of one command are apart: none
/// is on its way then that would undo a click or take an editor away.
class CQuiet
{
public:
    explicit CQuiet(std::function<quint64()> fnCountIn) : fnCount(std::move(fnCountIn)), nLast(fnCount())
    {
        timer.start();
    }

    /// To be asked again and again.
    bool Is()
    {
        constexpr qint64 nQuietMs = 100;
        const quint64 nNow = fnCount();
        if (std::exchange(nLast, nNow) != nNow) {
            timer.start();
        }
        return timer.elapsed() > nQuietMs;
    }

private:
    const std::function<quint64()> fnCount;
    quint64 nLast;
    QElapsedTimer timer;
};
