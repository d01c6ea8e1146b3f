#include "journal/replay/CReplayHub.h"

#include "interfaces/widgets/CObserver.h"

#include <algorithm>

CReplayHub::CReplayHub() : thread([this] { Run(); }) { }

CReplayHub::~CReplayHub()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bEnd = true;
        condition.notify_all();
    }
    thread.join();
}

void CReplayHub::Attach(const QString& strObject, CObserver* pObserver)
{
    const std::lock_guard<std::mutex> lock(mutex);
    vecSubscription.push_back({ strObject, pObserver });
}

void CReplayHub::Detach(const QString& strObject, CObserver* pObserver)
{
    std::unique_lock<std::mutex> lock(mutex);
    const SSubscription subscription{ strObject, pObserver };
    const auto it = std::find(vecSubscription.begin(), vecSubscription.end(), subscription);
    if (it != vecSubscription.end()) {
        vecSubscription.erase(it);
    }
    condition.wait(lock, [&] { return !RunsElsewhere(subscription); });
}

void CReplayHub::Post(const QString& strObject, int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutex);
    queue.push_back({ strObject, nMessage });
    condition.notify_all();
}

void CReplayHub::Send(const QString& strObject, int nMessage)
{
    std::vector<SSubscription> vecNow;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        std::copy_if(vecSubscription.begin(), vecSubscription.end(), std::back_inserter(vecNow),
                     [&](const SSubscription& subscription) { return subscription.strObject == strObject; });
    }
    for (const SSubscription& subscription : vecNow) {
        Notify(subscription, nMessage);
    }
}

bool CReplayHub::IsIdle() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return queue.empty() && !bBringing;
}

void CReplayHub::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
        condition.wait(lock, [this] { return bEnd || !queue.empty(); });
        if (queue.empty()) {
            return;
        }
        const SMessage message = queue.front();
        queue.pop_front();
        bBringing = true;
        lock.unlock();
        Send(message.strObject, message.nMessage);
        lock.lock();
        bBringing = false;
    }
}

// Who has gone meanwhile hears nothing.
void CReplayHub::Notify(const SSubscription& subscription, int nMessage)
{
    std::unique_lock<std::mutex> lock(mutex);
    if (std::find(vecSubscription.begin(), vecSubscription.end(), subscription) == vecSubscription.end()) {
        return;
    }
    vecRunning.push_back({ subscription, std::this_thread::get_id() });
    lock.unlock();
    subscription.pObserver->Notify(nMessage);
    lock.lock();
    const auto it = std::find_if(vecRunning.begin(), vecRunning.end(), [&](const SRunning& running) {
        return running.subscription == subscription && running.idThread == std::this_thread::get_id();
    });
    vecRunning.erase(it);
    condition.notify_all();
}

bool CReplayHub::RunsElsewhere(const SSubscription& subscription) const
{
    return std::any_of(vecRunning.begin(), vecRunning.end(), [&](const SRunning& running) {
        return running.subscription == subscription && running.idThread != std::this_thread::get_id();
    });
}
