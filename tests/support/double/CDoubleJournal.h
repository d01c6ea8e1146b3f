#pragma once

#include "double/SCall.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

/// The ordered journal of all calls, and the gate at which a call can be held. Any thread.
///
/// Operations are named with their object, "g_pPrcListControl.MoveProcessor", or, where no other object
/// has one of that name, without, "MoveProcessor".
class CDoubleJournal
{
public:
    /// A call that is under way; its end is the end of the call.
    class CCallGuard
    {
    public:
        explicit CCallGuard(CDoubleJournal& journal) : pJournal(&journal) { }
        ~CCallGuard();
        Q_DISABLE_COPY(CCallGuard)

    private:
        CDoubleJournal* pJournal;
    };

    /// What the library does meanwhile.
    using FnDuring = std::function<void()>;

    /// Writes the call down and, when its operation is held, waits until it is let go. Then runs what During()
    /// asked for.
    CCallGuard Enter(EnCallKind kind, const QString& strOperation, const QString& strArguments);

    QList<SCall> Calls() const;
    void Clear();

    /// From now on calls are neither written down nor held: for whoever measures what goes on around them. There is no way back.
    void Stop()
    {
        bStopped = true;
    }

    bool IsStopped() const
    {
        return bStopped;
    }

    /// What Enter() is to a stopped journal.
    CCallGuard EnterUnwritten();

    /// fn runs once, inside the next call of the operation, on the thread of that call.
    void During(const QString& strOperation, const FnDuring& fn);

    void Hold(const QString& strOperation);
    void Release(const QString& strOperation);
    void ReleaseAll();

    /// Waits until no call is under way.
    void WaitForEnd();

    /// Calls of the operation since the last Clear().
    int CallCount(const QString& strOperation) const;

    /// True when nCount calls of the operation, counted since the last Clear(), have come within
    /// nTimeout milliseconds. Blocks the caller without an event loop.
    bool WaitForCall(const QString& strOperation, int nCount, int nTimeout);

    /// True when a call of the operation stands at its gate within nTimeout milliseconds.
    bool WaitForHeld(const QString& strOperation, int nTimeout);

private:
    void WaitAtGate(std::unique_lock<std::mutex>& lock, const QString& strOperation);
    void Leave();
    bool IsHeld(const QString& strOperation) const;
    int CountCalls(const QString& strOperation) const;
    FnDuring TakeDuring(const QString& strOperation);

    std::atomic<bool> bStopped{ false };
    mutable std::mutex mutex;          ///< guards the fields below
    std::condition_variable condition; ///< any of them changed
    QList<SCall> listCall;
    QSet<QString> setHeld;   ///< operations that are held
    QStringList listWaiting; ///< operations of the calls that stand at their gate
    QMap<QString, FnDuring> mapDuring;
    int nUnderWay = 0; ///< calls between Enter and their end
};
