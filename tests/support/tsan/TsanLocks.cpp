#include "tsan/TsanOrder.h"

#include <QMutex>
#include <QReadWriteLock>
#include <QSemaphore>
#include <QWaitCondition>

using TsanQt::Original;
using TsanQt::PutIn;
using TsanQt::TakeIn;

namespace {

enum EnLockMode
{
    LockRead,
    LockWrite,
};

/// A lock that this thread holds. Recursive locks count; the sanitizer hears of the outermost only.
struct SHeldLock
{
    void* pLock;
    int nDepth;
    EnLockMode mode;
};

constexpr int nMaxHeld = 64;

// Without destructor: Qt still locks while a thread's other variables are destroyed.
thread_local SHeldLock t_aHeld[nMaxHeld];
thread_local int t_nHeld = 0;

SHeldLock* FindHeld(void* pLock)
{
    for (int i = 0; i < t_nHeld; ++i) {
        if (t_aHeld[i].pLock == pLock) {
            return &t_aHeld[i];
        }
    }
    return nullptr;
}

unsigned Flags(EnLockMode mode)
{
    return __tsan_mutex_linker_init | (mode == LockRead ? __tsan_mutex_read_lock : 0U);
}

void Locked(void* pLock, EnLockMode mode)
{
    if (SHeldLock* pHeld = FindHeld(pLock)) {
        ++pHeld->nDepth;
        return;
    }
    if (t_nHeld == nMaxHeld) {
        qFatal("more locks held at once than the table of the thread sanitizer's bridge has room for");
    }
    t_aHeld[t_nHeld++] = { pLock, 1, mode };
    // Told after the fact, as an attempt that succeeded: the wait itself was Qt's.
    __tsan_mutex_pre_lock(pLock, Flags(mode) | __tsan_mutex_try_lock);
    __tsan_mutex_post_lock(pLock, Flags(mode) | __tsan_mutex_try_lock, 0);
}

bool LockedIf(bool bLocked, void* pLock, EnLockMode mode)
{
    if (bLocked) {
        Locked(pLock, mode);
    }
    return bLocked;
}

bool AcquiredIf(bool bAcquired, const QSemaphore* pSemaphore)
{
    if (bAcquired) {
        TakeIn(pSemaphore);
    }
    return bAcquired;
}

void Unlocking(void* pLock)
{
    SHeldLock* pHeld = FindHeld(pLock);
    if (pHeld == nullptr || --pHeld->nDepth > 0) {
        return;
    }
    const unsigned nFlags = Flags(pHeld->mode);
    *pHeld = t_aHeld[--t_nHeld];
    __tsan_mutex_pre_unlock(pLock, nFlags);
    __tsan_mutex_post_unlock(pLock, nFlags);
}

} // namespace

void QReadWriteLock::lockForRead()
{
    static const auto fnOriginal = Original<void (*)(QReadWriteLock*)>("_ZN14QReadWriteLock11lockForReadEv");
    fnOriginal(this);
    Locked(this, LockRead);
}

void QReadWriteLock::lockForWrite()
{
    static const auto fnOriginal = Original<void (*)(QReadWriteLock*)>("_ZN14QReadWriteLock12lockForWriteEv");
    fnOriginal(this);
    Locked(this, LockWrite);
}

bool QReadWriteLock::tryLockForRead()
{
    static const auto fnOriginal = Original<bool (*)(QReadWriteLock*)>("_ZN14QReadWriteLock14tryLockForReadEv");
    return LockedIf(fnOriginal(this), this, LockRead);
}

bool QReadWriteLock::tryLockForRead(int timeout)
{
    static const auto fnOriginal = Original<bool (*)(QReadWriteLock*, int)>("_ZN14QReadWriteLock14tryLockForReadEi");
    return LockedIf(fnOriginal(this, timeout), this, LockRead);
}

bool QReadWriteLock::tryLockForWrite()
{
    static const auto fnOriginal = Original<bool (*)(QReadWriteLock*)>("_ZN14QReadWriteLock15tryLockForWriteEv");
    return LockedIf(fnOriginal(this), this, LockWrite);
}

bool QReadWriteLock::tryLockForWrite(int timeout)
{
    static const auto fnOriginal = Original<bool (*)(QReadWriteLock*, int)>("_ZN14QReadWriteLock15tryLockForWriteEi");
    return LockedIf(fnOriginal(this, timeout), this, LockWrite);
}

void QReadWriteLock::unlock()
{
    static const auto fnOriginal = Original<void (*)(QReadWriteLock*)>("_ZN14QReadWriteLock6unlockEv");
    Unlocking(this);
    fnOriginal(this);
}

void QMutex::lock() noexcept
{
    static const auto fnOriginal = Original<void (*)(QMutex*)>("_ZN6QMutex4lockEv");
    fnOriginal(this);
    Locked(this, LockWrite);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto fnOriginal = Original<bool (*)(QMutex*, int)>("_ZN6QMutex7tryLockEi");
    return LockedIf(fnOriginal(this, timeout), this, LockWrite);
}

void QMutex::unlock() noexcept
{
    static const auto fnOriginal = Original<void (*)(QMutex*)>("_ZN6QMutex6unlockEv");
    Unlocking(this);
    fnOriginal(this);
}

bool QWaitCondition::wait(QMutex* lockedMutex, unsigned long time)
{
    static const auto fnOriginal
        = Original<bool (*)(QWaitCondition*, QMutex*, unsigned long)>("_ZN14QWaitCondition4waitEP6QMutexm");
    Unlocking(lockedMutex);
    const bool bWoken = fnOriginal(this, lockedMutex, time);
    Locked(lockedMutex, LockWrite);
    return bWoken;
}

bool QWaitCondition::wait(QMutex* lockedMutex, QDeadlineTimer deadline)
{
    static const auto fnOriginal
        = Original<bool (*)(QWaitCondition*, QMutex*, QDeadlineTimer)>("_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    Unlocking(lockedMutex);
    const bool bWoken = fnOriginal(this, lockedMutex, deadline);
    Locked(lockedMutex, LockWrite);
    return bWoken;
}

void QSemaphore::acquire(int n)
{
    static const auto fnOriginal = Original<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    fnOriginal(this, n);
    TakeIn(this);
}

bool QSemaphore::tryAcquire(int n)
{
    static const auto fnOriginal = Original<bool (*)(QSemaphore*, int)>("_ZN10QSemaphore10tryAcquireEi");
    return AcquiredIf(fnOriginal(this, n), this);
}

bool QSemaphore::tryAcquire(int n, int timeout)
{
    static const auto fnOriginal = Original<bool (*)(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    return AcquiredIf(fnOriginal(this, n, timeout), this);
}

void QSemaphore::release(int n)
{
    static const auto fnOriginal = Original<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    PutIn(this);
    fnOriginal(this, n);
}
