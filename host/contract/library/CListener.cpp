#include "contract/library/CListener.h"

#include "contract/library/Subscription.h"

namespace {

constexpr quint64 nReadingSet = 0x6000010000C682; // 1, 7, 9, 10, 14, 15, 32, 53, 54
constexpr int nLastMessage = 59;

quint64 GetBit(int nMessage)
{
    return nMessage > 0 && nMessage <= nLastMessage ? quint64(1) << nMessage : 0;
}

} // namespace

void CListener::Attach()
{
    Subscription::Attach(library, this);
}

void CListener::Detach()
{
    Subscription::Detach(library, this);
}

void CListener::Notify(int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutex);
    nReadings += MakesRead(nMessage) ? 1 : 0;
    nSeen |= GetBit(nMessage);
    bOnCaller = bOnCaller || std::this_thread::get_id() == idCaller;
    cond.notify_all();
}

int CListener::GetReadings() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nReadings;
}

bool CListener::AwaitReading(int nBefore, std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return cond.wait_for(lock, time, [&] { return nReadings > nBefore; });
}

bool CListener::AwaitMessage(int nMessage, std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return cond.wait_for(lock, time, [&] { return (nSeen & GetBit(nMessage)) != 0; });
}

bool CListener::AwaitAny(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    return cond.wait_for(lock, time, [&] { return nReadings > 0 || nSeen != 0; });
}

void CListener::GuardCaller()
{
    const std::lock_guard<std::mutex> lock(mutex);
    idCaller = std::this_thread::get_id();
    bOnCaller = false;
}

bool CListener::WasOnCaller() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return bOnCaller;
}

bool CListener::MakesRead(int nMessage)
{
    return (GetBit(nMessage) & nReadingSet) != 0;
}
