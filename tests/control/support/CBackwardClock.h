#pragma once

/// The machine's wall clock as somebody keeps setting it back: while an object lives, each reading of it
/// in this process is an hour before the reading before. What waits or measures by it never comes to an
/// end; a steady clock is not touched. At most one lives at a time.
class CBackwardClock
{
public:
    CBackwardClock();
    ~CBackwardClock();
    CBackwardClock(const CBackwardClock&) = delete;
    CBackwardClock& operator=(const CBackwardClock&) = delete;
};
