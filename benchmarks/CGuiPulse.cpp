#include "CGuiPulse.h"

#include <QCoreApplication>
#include <QEvent>

#include <pthread.h>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds timeBeat{ 2 };

std::chrono::nanoseconds GetTime(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

clockid_t GetClockOfThread()
{
    clockid_t clock{};
    pthread_getcpuclockid(pthread_self(), &clock);
    return clock;
}

class CPulse : public QEvent
{
public:
    explicit CPulse(clockid_t clockGui) : QEvent(QEvent::User), timeWork(GetTime(clockGui)) { }

    const std::chrono::nanoseconds timeWork;
    const std::chrono::nanoseconds timePosted = GetTime(CLOCK_MONOTONIC);
};

std::chrono::microseconds GetSince(clockid_t clock, std::chrono::nanoseconds timeBegin)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(GetTime(clock) - timeBegin);
}

} // namespace

CGuiPulse::CGuiPulse() : clockGui(GetClockOfThread())
{
    thread = std::thread([this] { Run(); });
}

CGuiPulse::~CGuiPulse()
{
    bEnd = true;
    thread.join();
}

void CGuiPulse::customEvent(QEvent* event)
{
    const auto* pPulse = static_cast<CPulse*>(event);
    timeLongest = std::max(timeLongest, GetSince(CLOCK_MONOTONIC, pPulse->timePosted));
    timeBusiest = std::max(timeBusiest, GetSince(clockGui, pPulse->timeWork));
    bWaits = false;
}

void CGuiPulse::Run()
{
    while (!bEnd) {
        if (!bWaits.exchange(true)) {
            QCoreApplication::postEvent(this, new CPulse(clockGui));
        }
        std::this_thread::sleep_for(timeBeat);
    }
}
