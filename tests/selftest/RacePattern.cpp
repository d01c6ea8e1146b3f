#include "RacePattern.h"

#include <thread>

int RacePattern::nShared = 0;

void RacePattern::Twice(const std::function<void()>& fn)
{
    std::thread other(fn);
    fn();
    other.join();
}

void RacePattern::Repeat(const std::function<void()>& fn)
{
    for (int i = 0; i < nRounds; ++i) {
        fn();
    }
}
