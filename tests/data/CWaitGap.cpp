#include "CWaitGap.h"

#include <atomic>

#include <pthread.h>

namespace {

std::atomic<const std::condition_variable*> s_pHeld{ nullptr };
std::atomic<CWaitGap*> s_pGap{ nullptr };

} // namespace

// Found before the one of the library, by the panel's objects too, which are linked into the program.
void std::condition_variable::wait(std::unique_lock<std::mutex>& lock)
{
    CWaitGap::Pass(*this);
    pthread_cond_wait(native_handle(), lock.mutex()->native_handle());
}

CWaitGap::CWaitGap(const std::condition_variable& conditionIn) : condition(conditionIn)
{
    s_pGap = this;
    s_pHeld = &condition;
}

CWaitGap::~CWaitGap()
{
    s_pHeld = nullptr;
    s_pGap = nullptr;
}

bool CWaitGap::WaitForLoop(int nTimeout)
{
    return semaphoreReached.tryAcquire(1, nTimeout);
}

void CWaitGap::Close()
{
    semaphoreClosed.release();
}

void CWaitGap::Pass(const std::condition_variable& condition)
{
    const std::condition_variable* pExpected = &condition;
    if (s_pHeld.compare_exchange_strong(pExpected, nullptr)) {
        CWaitGap* const pGap = s_pGap;
        pGap->semaphoreReached.release();
        pGap->semaphoreClosed.acquire();
    }
}
