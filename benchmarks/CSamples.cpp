#include "CSamples.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

double CSamples::Add(double fSeconds)
{
    vecSeconds.push_back(fSeconds);
    return fSeconds;
}

double CSamples::Median() const
{
    return ::Median(vecSeconds);
}

double CSamples::ThreadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double CSamples::WallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void CSamples::BeginCount()
{
    CALLGRIND_ZERO_STATS;
}

void CSamples::EndCount() const
{
    CALLGRIND_DUMP_STATS_AT(szName);
}

double Median(const std::vector<double>& vecValue)
{
    if (vecValue.empty()) {
        return 0.0;
    }
    std::vector<double> vecSorted = vecValue;
    const auto itMiddle = vecSorted.begin() + static_cast<std::ptrdiff_t>(vecSorted.size() / 2);
    std::nth_element(vecSorted.begin(), itMiddle, vecSorted.end());
    return *itMiddle;
}

double GrowthExponent(const std::vector<int>& vecSize, const std::vector<double>& vecSeconds)
{
    const double fCount = static_cast<double>(vecSize.size());
    double fSumX = 0.0, fSumY = 0.0, fSumXX = 0.0, fSumXY = 0.0;
    for (std::size_t i = 0; i < vecSize.size(); ++i) {
        const double fX = std::log(static_cast<double>(vecSize[i]));
        const double fY = std::log(vecSeconds[i]);
        fSumX += fX;
        fSumY += fY;
        fSumXX += fX * fX;
        fSumXY += fX * fY;
    }
    return (fCount * fSumXY - fSumX * fSumY) / (fCount * fSumXX - fSumX * fSumX);
}
