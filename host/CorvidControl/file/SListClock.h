#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>

/// The time, as the keeping of the list needs it; a test gives its own.
struct SListClock
{
    /// For how long something has lasted. Never set back.
    std::function<std::chrono::steady_clock::time_point()> now = [] { return std::chrono::steady_clock::now(); };

    /// For the names of files, local.
    std::function<QDateTime()> date = [] { return QDateTime::currentDateTime(); };
};
