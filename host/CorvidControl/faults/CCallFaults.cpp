#include "CorvidControl/faults/CCallFaults.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace {

bool IsGuiThread()
{
    const QCoreApplication* pApplication = QCoreApplication::instance();
    return pApplication && pApplication->thread() == QThread::currentThread();
}

// One less; false when there was none.
bool CountDown(int& nLeft)
{
    nLeft = std::max(nLeft, 0);
    return nLeft > 0 && nLeft-- > 0;
}

} // namespace

void CCallFaults::Delay(const QString& strCall, Milliseconds timeLate, Milliseconds timeFor)
{
    const std::lock_guard<std::mutex> lock(mutex);
    hashDelay.insert(strCall, { timeLate, Clock::now() + timeFor });
    bAny = true;
    condChange.notify_all();
}

void CCallFaults::Hang(const QString& strCall, Milliseconds timeFor)
{
    const std::lock_guard<std::mutex> lock(mutex);
    hashHang.insert(strCall, Clock::now() + timeFor);
    bAny = true;
    condChange.notify_all();
}

void CCallFaults::Throw(const QString& strCall, EnThrown thrown, int nCount)
{
    const std::lock_guard<std::mutex> lock(mutex);
    mapThrow[strCall] = { thrown, nCount };
    bAny = true;
}

void CCallFaults::RefuseSelection(int nCount)
{
    const std::lock_guard<std::mutex> lock(mutex);
    nSelectionsRefused = nCount;
    bAny = true;
}

void CCallFaults::SetImportCode(int nCode)
{
    const std::lock_guard<std::mutex> lock(mutex);
    nImportCode = nCode;
    bAny = true;
}

void CCallFaults::SetExportCode(int nCode)
{
    const std::lock_guard<std::mutex> lock(mutex);
    nExportCode = nCode;
    bAny = true;
}

void CCallFaults::Refuse(EnListCommand command, int nCount)
{
    const std::lock_guard<std::mutex> lock(mutex);
    mapRefused[command] = nCount;
    bAny = true;
}

bool CCallFaults::Release()
{
    const std::lock_guard<std::mutex> lock(mutex);
    bReleased = true;
    condChange.notify_all();
    return nHeld > 0;
}

void CCallFaults::Hold(const QString& strCall)
{
    if (IsGuiThread()) {
        return;
    }
    const Clock::time_point timeBegin = Clock::now();
    std::unique_lock<std::mutex> lock(mutex);
    ++nHeld;
    for (auto timeEnd = FindEnd(lock, strCall, timeBegin); Clock::now() < timeEnd; timeEnd = FindEnd(lock, strCall, timeBegin)) {
        condChange.wait_until(lock, timeEnd);
    }
    --nHeld;
}

EnThrown CCallFaults::TakeThrow(const QString& strCall)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto it = mapThrow.find(strCall);
    return it != mapThrow.end() && CountDown(it->second.nCount) ? it->second.thrown : ThrownNothing;
}

bool CCallFaults::TakeSelectionRefusal()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return CountDown(nSelectionsRefused);
}

std::optional<int> CCallFaults::TakeImportCode()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(nImportCode, std::nullopt);
}

std::optional<int> CCallFaults::TakeExportCode()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(nExportCode, std::nullopt);
}

bool CCallFaults::TakeRefusal(EnListCommand command)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto it = mapRefused.find(command);
    return it != mapRefused.end() && CountDown(it->second);
}

// Until when a call that has begun at timeBegin is held, by the faults of now.
CCallFaults::Clock::time_point CCallFaults::FindEnd(const std::unique_lock<std::mutex>& /*lock*/, const QString& strCall,
                                                    Clock::time_point timeBegin) const
{
    if (bReleased) {
        return timeBegin;
    }
    const SDelay delay = hashDelay.value(strCall);
    const Clock::time_point timeDelayed = timeBegin < delay.timeEnd ? timeBegin + delay.timeLate : timeBegin;
    return std::max(timeDelayed, hashHang.value(strCall, timeBegin));
}
