#include "CBackwardClock.h"

#include <atomic>
#include <ctime>

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr long nBackSeconds = 3600;
constexpr long nNsPerUs = 1000;

std::atomic<bool> bBackward{ false };
std::atomic<long> nReadings{ 0 };

/// By how many seconds this reading of the wall clock is early.
long TakeBack()
{
    return bBackward ? ++nReadings * nBackSeconds : 0;
}

} // namespace

CBackwardClock::CBackwardClock()
{
    bBackward = true;
}

CBackwardClock::~CBackwardClock()
{
    bBackward = false;
}

// The program's own definitions win over the C library's, in its libraries too. A sanitizer calls them
// before it is ready itself.
#define PTV_REPLACES __attribute__((visibility("default"), no_sanitize("thread", "address", "undefined")))

extern "C" PTV_REPLACES int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    const long nResult = syscall(SYS_clock_gettime, clock, time);
    if (nResult == 0 && clock == CLOCK_REALTIME) { // wall clock: the one that is set back
        time->tv_sec -= TakeBack();
    }
    return static_cast<int>(nResult);
}

extern "C" PTV_REPLACES int gettimeofday(timeval* time, void* /*zone*/) noexcept // wall clock: Qt's way to it
{
    timespec now{};
    const int nResult = clock_gettime(CLOCK_REALTIME, &now); // wall clock: the one that is set back
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / nNsPerUs;
    return nResult;
}
