#include "CorvidControl/CMessageDispatcher.h"

#include "CorvidControl/EnControlMessage.h"
#include "interfaces/widgets/CObserver.h"

#include <algorithm>

CMessageDispatcher::CMessageDispatcher() : threadDelivery([this] { Run(); }) { }

CMessageDispatcher::~CMessageDispatcher()
{
    Stop();
}

void CMessageDispatcher::Attach(EnMessageSender sender, CObserver* pObserver)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const SSubscription subscription{ sender, pObserver };
    if (IsSubscribed(subscription))
        return;
    vecSubscription.push_back(subscription);
    if (sender == SenderPrcList)
        Enqueue({ sender, MessageListChanged, pObserver });
}

void CMessageDispatcher::Detach(EnMessageSender sender, CObserver* pObserver)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto isIt = [&](const SSubscription& entry) { return entry.sender == sender && entry.pObserver == pObserver; };
    vecSubscription.erase(std::remove_if(vecSubscription.begin(), vecSubscription.end(), isIt), vecSubscription.end());
    if (std::this_thread::get_id() != threadDelivery.get_id())
        condDelivered.wait(lock, [&] { return pRunning != pObserver; });
}

void CMessageDispatcher::Post(EnMessageSender sender, int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutex);
    Enqueue({ sender, nMessage, nullptr });
}

void CMessageDispatcher::Stop()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bStop = true;
    }
    condWork.notify_all();
    if (threadDelivery.joinable())
        threadDelivery.join();
}

void CMessageDispatcher::Enqueue(const SPending& pending)
{
    timeLast = Clock::now();
    if (listPending.empty())
        timeFirst = timeLast;
    const auto isEqual = [&](const SPending& entry) {
        return entry.sender == pending.sender && entry.nMessage == pending.nMessage && entry.pOnly == pending.pOnly;
    };
    if (std::none_of(listPending.cbegin(), listPending.cend(), isEqual))
        listPending.push_back(pending);
    condWork.notify_all();
}

void CMessageDispatcher::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (AwaitBurst(lock)) {
        AwaitQuiet(lock);
        std::deque<SPending> listBurst;
        listBurst.swap(listPending);
        for (const SPending& pending : listBurst)
            Deliver(lock, pending);
        bUnsettled = true;
        timeSettled = Clock::now() + timeSettle;
    }
}

// Needs the lock. Sends the MessageSettled of the burst before, if no further burst comes first.
bool CMessageDispatcher::AwaitBurst(std::unique_lock<std::mutex>& lock)
{
    while (!bStop && listPending.empty()) {
        if (!bUnsettled) {
            condWork.wait(lock);
        } else if (condWork.wait_until(lock, timeSettled) == std::cv_status::timeout) {
            bUnsettled = false;
            Deliver(lock, { SenderProtocal, MessageSettled, nullptr });
        }
    }
    return !bStop;
}

void CMessageDispatcher::AwaitQuiet(std::unique_lock<std::mutex>& lock)
{
    while (!bStop) {
        const Clock::time_point timeDue = std::min(timeLast + timeQuiet, timeFirst + timeLongest);
        if (Clock::now() >= timeDue)
            return;
        condWork.wait_until(lock, timeDue);
    }
}

// Needs the lock, and lets go of it during each Notify.
void CMessageDispatcher::Deliver(std::unique_lock<std::mutex>& lock, const SPending& pending)
{
    const std::vector<SSubscription> vecReceiver = vecSubscription;
    for (const SSubscription& receiver : vecReceiver) {
        if (bStop)
            return;
        const bool bMeant = pending.pOnly ? pending.pOnly == receiver.pObserver : true;
        if (receiver.sender != pending.sender || !bMeant || !IsSubscribed(receiver))
            continue;
        pRunning = receiver.pObserver;
        lock.unlock();
        receiver.pObserver->Notify(pending.nMessage);
        lock.lock();
        pRunning = nullptr;
        condDelivered.notify_all();
    }
}

bool CMessageDispatcher::IsSubscribed(const SSubscription& subscription) const
{
    return std::any_of(vecSubscription.cbegin(), vecSubscription.cend(), [&](const SSubscription& entry) {
        return entry.sender == subscription.sender && entry.pObserver == subscription.pObserver;
    });
}
