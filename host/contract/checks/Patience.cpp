#include "contract/checks/Patience.h"

#include <thread>

bool Patience::Await(const std::function<bool()>& condition, std::chrono::milliseconds time)
{
    constexpr std::chrono::milliseconds timePoll{ 5 };
    const auto timeEnd = std::chrono::steady_clock::now() + time;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > timeEnd) {
            return false;
        }
        std::this_thread::sleep_for(timePoll);
    }
    return true;
}

std::chrono::milliseconds Patience::Measure(const std::function<void()>& call)
{
    const auto timeStart = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - timeStart);
}
