#include "double/CObserverHub.h"

#include "interfaces/widgets/CObserver.h"

#include <algorithm>
#include <chrono>

CObserverHub::CObserverHub() : thread([this] { Run(); }) { }

CObserverHub::~CObserverHub()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bEnd = true;
        condition.notify_all();
    }
    thread.join();
}

void CObserverHub::Attach(const QString& strObject, CObserver* pObserver)
{
    const std::lock_guard<std::mutex> lock(mutex);
    listSubscription.append({ strObject, pObserver });
}

void CObserverHub::Detach(const QString& strObject, CObserver* pObserver)
{
    std::unique_lock<std::mutex> lock(mutex);
    const SSubscription subscription(strObject, pObserver);
    listSubscription.removeOne(subscription);
    condition.wait(lock, [&] { return !RunsElsewhere(subscription); });
}

void CObserverHub::Raise(int nMessage, const QString& strObject)
{
    const std::lock_guard<std::mutex> lock(mutex);
    queue.emplace_back(nMessage, strObject);
    condition.notify_all();
}

void CObserverHub::Deliver(int nMessage, const QString& strObject)
{
    for (const SSubscription& subscription : Recipients(strObject)) {
        DeliverTo(subscription, nMessage);
    }
}

bool CObserverHub::WaitForDelivery(int nTimeout)
{
    std::unique_lock<std::mutex> lock(mutex);
    return condition.wait_for(lock, std::chrono::milliseconds(nTimeout), [this] { return queue.empty() && !bDelivering; });
}

QStringList CObserverHub::Attached() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    QStringList listObject;
    for (const SSubscription& subscription : listSubscription) {
        listObject.append(subscription.first);
    }
    return listObject;
}

void CObserverHub::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
        condition.wait(lock, [this] { return bEnd || !queue.empty(); });
        if (queue.empty()) {
            return;
        }
        const auto message = queue.front();
        queue.pop_front();
        bDelivering = true;
        lock.unlock();
        Deliver(message.first, message.second);
        lock.lock();
        bDelivering = false;
        condition.notify_all();
    }
}

QList<CObserverHub::SSubscription> CObserverHub::Recipients(const QString& strObject) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    QList<SSubscription> listRecipient;
    for (const SSubscription& subscription : listSubscription) {
        const auto fnKnown = [&](const SSubscription& other) { return other.second == subscription.second; };
        const bool bTaken = strObject.isEmpty() ? std::none_of(listRecipient.cbegin(), listRecipient.cend(), fnKnown)
                                                : subscription.first == strObject;
        if (bTaken) {
            listRecipient.append(subscription);
        }
    }
    return listRecipient;
}

void CObserverHub::DeliverTo(const SSubscription& subscription, int nMessage)
{
    std::unique_lock<std::mutex> lock(mutex);
    if (!listSubscription.contains(subscription)) {
        return;
    }
    listRunning.append({ subscription, std::this_thread::get_id() });
    lock.unlock();
    subscription.second->Notify(nMessage);
    lock.lock();
    const auto it = std::find_if(listRunning.begin(), listRunning.end(), [&](const SRunning& running) {
        return running.subscription == subscription && running.idThread == std::this_thread::get_id();
    });
    listRunning.erase(it);
    condition.notify_all();
}

bool CObserverHub::RunsElsewhere(const SSubscription& subscription) const
{
    return std::any_of(listRunning.cbegin(), listRunning.cend(), [&](const SRunning& running) {
        return running.subscription == subscription && running.idThread != std::this_thread::get_id();
    });
}
