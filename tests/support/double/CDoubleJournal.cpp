#include "double/CDoubleJournal.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <typeinfo>

namespace {

bool Names(const QString& strName, const QString& strOperation)
{
    return strName == strOperation || strOperation.endsWith(QLatin1Char('.') + strName);
}

/// Which of the panel's threads this is. Pool threads and threads that Qt did not start are told by
/// their class, which Qt keeps private.
QString ThreadTag()
{
    QThread* pThread = QThread::currentThread();
    const QCoreApplication* pApplication = QCoreApplication::instance();
    if (pApplication != nullptr && pThread == pApplication->thread()) {
        return QStringLiteral("gui");
    }
    const QLatin1String strClass(typeid(*pThread).name());
    if (strClass.contains(QLatin1String("QThreadPoolThread"))) {
        return QStringLiteral("pool");
    }
    return strClass.contains(QLatin1String("QAdoptedThread")) ? QStringLiteral("other") : QStringLiteral("worker");
}

} // namespace

CDoubleJournal::CCallGuard::~CCallGuard()
{
    pJournal->Leave();
}

void CDoubleJournal::WaitForEnd()
{
    std::unique_lock<std::mutex> lock(mutex);
    condition.wait(lock, [this] { return nUnderWay == 0; });
}

CDoubleJournal::CCallGuard CDoubleJournal::Enter(EnCallKind kind, const QString& strOperation, const QString& strArguments)
{
    std::unique_lock<std::mutex> lock(mutex);
    ++nUnderWay;
    listCall.append({ kind, strOperation, strArguments, ThreadTag() });
    condition.notify_all();
    WaitAtGate(lock, strOperation);
    const FnDuring fnDuring = TakeDuring(strOperation);
    lock.unlock(); // it may call the library itself
    if (fnDuring) {
        fnDuring();
    }
    return CCallGuard(*this);
}

CDoubleJournal::CCallGuard CDoubleJournal::EnterUnwritten()
{
    const std::lock_guard<std::mutex> lock(mutex);
    ++nUnderWay;
    return CCallGuard(*this);
}

void CDoubleJournal::WaitAtGate(std::unique_lock<std::mutex>& lock, const QString& strOperation)
{
    if (IsHeld(strOperation)) {
        listWaiting.append(strOperation);
        condition.wait(lock, [this, &strOperation] { return !IsHeld(strOperation); });
        listWaiting.removeOne(strOperation);
    }
}

void CDoubleJournal::Leave()
{
    const std::lock_guard<std::mutex> lock(mutex);
    --nUnderWay;
    condition.notify_all();
}

QList<SCall> CDoubleJournal::Calls() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return listCall;
}

void CDoubleJournal::Clear()
{
    const std::lock_guard<std::mutex> lock(mutex);
    listCall.clear();
}

void CDoubleJournal::During(const QString& strOperation, const FnDuring& fn)
{
    const std::lock_guard<std::mutex> lock(mutex);
    mapDuring.insert(strOperation, fn);
}

void CDoubleJournal::Hold(const QString& strOperation)
{
    const std::lock_guard<std::mutex> lock(mutex);
    setHeld.insert(strOperation);
}

void CDoubleJournal::Release(const QString& strOperation)
{
    const std::lock_guard<std::mutex> lock(mutex);
    setHeld.remove(strOperation);
    condition.notify_all();
}

void CDoubleJournal::ReleaseAll()
{
    const std::lock_guard<std::mutex> lock(mutex);
    setHeld.clear();
    condition.notify_all();
}

int CDoubleJournal::CallCount(const QString& strOperation) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return CountCalls(strOperation);
}

bool CDoubleJournal::WaitForCall(const QString& strOperation, int nCount, int nTimeout)
{
    std::unique_lock<std::mutex> lock(mutex);
    return condition.wait_for(lock, std::chrono::milliseconds(nTimeout), [&] { return CountCalls(strOperation) >= nCount; });
}

bool CDoubleJournal::WaitForHeld(const QString& strOperation, int nTimeout)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto fnStands = [&] {
        return IsHeld(strOperation) && std::any_of(listWaiting.cbegin(), listWaiting.cend(), [&](const QString& strWaiting) {
                   return Names(strOperation, strWaiting);
               });
    };
    return condition.wait_for(lock, std::chrono::milliseconds(nTimeout), fnStands);
}

bool CDoubleJournal::IsHeld(const QString& strOperation) const
{
    return std::any_of(setHeld.cbegin(), setHeld.cend(),
                       [&strOperation](const QString& strHeld) { return Names(strHeld, strOperation); });
}

// Called with the mutex held.
CDoubleJournal::FnDuring CDoubleJournal::TakeDuring(const QString& strOperation)
{
    for (auto it = mapDuring.begin(); it != mapDuring.end(); ++it) {
        if (Names(it.key(), strOperation)) {
            const FnDuring fn = it.value();
            mapDuring.erase(it);
            return fn;
        }
    }
    return FnDuring();
}

int CDoubleJournal::CountCalls(const QString& strOperation) const
{
    return int(std::count_if(listCall.cbegin(), listCall.cend(),
                             [&strOperation](const SCall& call) { return Names(strOperation, call.strOperation); }));
}
