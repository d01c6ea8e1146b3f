#pragma once

#include "Patience.h"

#include <QSemaphore>

#include <condition_variable>

/// Holds a loop in the gap between its last look at its flags and its sleep: at the call of a wait, which has not
/// begun to listen for wake-ups. A program with this class has a std::condition_variable::wait of its own.
class CWaitGap
{
public:
    /// The next wait on the condition is held. One gap at a time.
    explicit CWaitGap(const std::condition_variable& conditionIn);
    ~CWaitGap();
    Q_DISABLE_COPY(CWaitGap)

    /// True when the loop is in the gap.
    bool WaitForLoop(int nTimeout = nPatience);

    /// Lets the loop go to sleep.
    void Close();

    /// Holds the caller for as long as the gap is open, if it is to wait on the condition.
    static void Pass(const std::condition_variable& condition);

private:
    const std::condition_variable& condition;
    QSemaphore semaphoreReached;
    QSemaphore semaphoreClosed;
};
