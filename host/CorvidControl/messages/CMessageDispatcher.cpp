#include "CorvidControl/messages/CMessageDispatcher.h"

#include "CorvidControl/faults/CMessageFaults.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "interfaces/widgets/CObserver.h"

#include <QtGlobal>

#include <algorithm>

namespace {

constexpr CControlClock::Time timeNever = CControlClock::Time::max();

} // namespace

CMessageDispatcher::CMessageDispatcher(const CControlClock& clockIn, CMessageFaults* pFaultsIn)
    : clock(clockIn), pFaults(pFaultsIn), threadDelivery([this] { Run(); })
{ }

CMessageDispatcher::~CMessageDispatcher()
{
    Stop();
}

void CMessageDispatcher::Attach(EnMessageSender sender, CObserver* pObserver)
{
    const Lock lock(mutex);
    const SSubscription subscription{ sender, pObserver };
    if (IsSubscribed(lock, subscription)) {
        return;
    }
    vecSubscription.push_back(subscription);
    if (sender == SenderPrcList) {
        Enqueue(lock, sender, MessageListChanged, pObserver);
    }
}

void CMessageDispatcher::Detach(EnMessageSender sender, CObserver* pObserver)
{
    Lock lock(mutex);
    const auto isIt = [&](const SSubscription& entry) { return entry.sender == sender && entry.pObserver == pObserver; };
    vecSubscription.erase(std::remove_if(vecSubscription.begin(), vecSubscription.end(), isIt), vecSubscription.end());
    if (std::this_thread::get_id() != threadDelivery.get_id()) {
        condDelivered.wait(lock, [&] { return pRunning != pObserver; });
    }
}

void CMessageDispatcher::Post(EnMessageSender sender, int nMessage)
{
    const Lock lock(mutex);
    Enqueue(lock, sender, nMessage, nullptr);
}

// An editor that opens again before they have gone holds them back as the one before did. So does one that opens in the middle of
// a burst.
void CMessageDispatcher::SetUserEditing(bool bOn)
{
    const Lock lock(mutex);
    const bool bCloses = activity.IsEditing() && !bOn;
    for (SPending& pending : listPending) {
        pending.bReleased = !bOn && (bCloses || pending.bReleased);
        pending.bBegun = !bOn && pending.bBegun;
    }
    activity.SetEditing(bOn);
    condWork.notify_all();
}

void CMessageDispatcher::SetUserActing(bool bOn)
{
    const Lock lock(mutex);
    activity.SetActing(bOn);
    condWork.notify_all();
}

// Wakes nobody: input only makes messages wait longer.
void CMessageDispatcher::NoteUserInput()
{
    const Lock lock(mutex);
    activity.NoteInput(clock.GetNow());
}

void CMessageDispatcher::Stop()
{
    Q_ASSERT(std::this_thread::get_id() != threadDelivery.get_id());
    {
        const Lock lock(mutex);
        bStop = true;
    }
    condWork.notify_all();
    if (threadDelivery.joinable()) {
        threadDelivery.join();
    }
}

void CMessageDispatcher::Enqueue(const Lock& /*lock*/, EnMessageSender sender, int nMessage, CObserver* pOnly)
{
    const Time timeNow = clock.GetNow();
    const auto itEqual = std::find_if(listPending.begin(), listPending.end(), [&](const SPending& entry) {
        return entry.sender == sender && entry.nMessage == nMessage && entry.pOnly == pOnly;
    });
    if (itEqual == listPending.end()) {
        listPending.push_back({ sender, nMessage, pOnly, timeNow, timeNow });
    } else {
        itEqual->timeLast = timeNow;
    }
    condWork.notify_all();
}

void CMessageDispatcher::Run()
{
    Lock lock(mutex);
    while (AwaitBurst(lock)) {
        for (const SMessageOnItsWay& message : Disturb(lock, TakeTurn(lock))) {
            Send(lock, message);
        }
        bUnsettled = true;
        timeSettled = clock.GetNow() + timeSettle;
    }
}

void CMessageDispatcher::Send(Lock& lock, const SMessageOnItsWay& message)
{
    Deliver(lock, message.sender, message.nMessage, message.pOnly);
    if (CUserActivity::MakesRead(message.nMessage)) {
        timeRead = clock.GetNow() + timeGap;
    }
}

// False at the end. Sends the MessageSettled of the burst before, if no further burst comes first.
bool CMessageDispatcher::AwaitBurst(Lock& lock)
{
    while (!bStop) {
        const Time timeNow = clock.GetNow();
        const Time timeBurst = std::min(FindBurst(lock, timeNow), pFaults ? pFaults->GetDue() : timeNever);
        const Time timeEnd = bUnsettled && timeBurst == timeNever ? timeSettled : timeNever;
        if (timeBurst <= timeNow) {
            return true;
        }
        if (timeEnd <= timeNow) {
            bUnsettled = false;
            Deliver(lock, SenderProtocal, MessageSettled, nullptr);
        } else {
            WaitUntil(lock, std::min({ timeBurst, timeEnd, FindRelease(lock, timeNow) }));
        }
    }
    return false;
}

void CMessageDispatcher::WaitUntil(Lock& lock, Time timeEnd)
{
    if (timeEnd == timeNever) {
        condWork.wait(lock);
    } else {
        clock.Wait(condWork, lock, timeEnd);
    }
}

// What goes at once: the messages of the burst up to the next that makes observers read and has to keep its distance.
std::deque<CMessageDispatcher::SPending> CMessageDispatcher::TakeTurn(const Lock& lock)
{
    std::deque<SPending> listTurn = TakeBurst(lock);
    const auto makesRead = [](const SPending& pending) { return CUserActivity::MakesRead(pending.nMessage); };
    auto itRest = std::find_if(listTurn.begin(), listTurn.end(), makesRead);
    if (itRest != listTurn.end() && timeRead <= clock.GetNow()) {
        itRest = std::find_if(itRest + 1, listTurn.end(), makesRead);
    }
    std::for_each(itRest, listTurn.end(), [](SPending& pending) { pending.bBegun = true; });
    listPending.insert(listPending.begin(), itRest, listTurn.end());
    listTurn.erase(itRest, listTurn.end());
    return listTurn;
}

// The rest of one that has begun takes in no others: without an end, it would never be over.
std::deque<CMessageDispatcher::SPending> CMessageDispatcher::TakeBurst(const Lock& lock)
{
    const Time timeNow = clock.GetNow();
    const auto isBegun = [](const SPending& pending) { return pending.bBegun; };
    const bool bBegun = std::any_of(listPending.cbegin(), listPending.cend(), isBegun);
    const auto isFree = [&](const SPending& pending) { return bBegun ? pending.bBegun : IsFree(lock, pending, timeNow); };
    const bool bAllRead = !bBegun && std::any_of(listPending.cbegin(), listPending.cend(), [&](const SPending& pending) {
        return isFree(pending) && !pending.pOnly && CUserActivity::MakesRead(pending.nMessage);
    });
    const auto itHeld = bAllRead ? listPending.end() : std::stable_partition(listPending.begin(), listPending.end(), isFree);
    std::deque<SPending> listBurst(listPending.begin(), itHeld);
    listPending.erase(listPending.begin(), itHeld);
    return listBurst;
}

// What is delivered of a burst.
std::vector<SMessageOnItsWay> CMessageDispatcher::Disturb(const Lock& /*lock*/, const std::deque<SPending>& listBurst) const
{
    std::vector<SMessageOnItsWay> vecMessage;
    vecMessage.reserve(listBurst.size());
    for (const SPending& pending : listBurst) {
        vecMessage.push_back({ pending.sender, pending.nMessage, pending.pOnly });
    }
    return pFaults ? pFaults->Pass(vecMessage, clock.GetNow()) : vecMessage;
}

// When the messages that need not wait for the user are due; never if there are none.
CMessageDispatcher::Time CMessageDispatcher::FindBurst(const Lock& lock, Time timeNow) const
{
    Time timeCalm;
    Time timeLatest = timeNever;
    for (const SPending& pending : listPending) {
        if (IsFree(lock, pending, timeNow)) {
            timeCalm = std::max(timeCalm, pending.timeLast + timeQuiet);
            timeLatest = std::min(timeLatest, pending.bBegun ? Time() : pending.timeFirst + timeLongest);
        }
    }
    return timeLatest == timeNever ? timeNever : std::max(std::min(timeCalm, timeLatest), FindGapEnd(lock, timeNow));
}

// Until when the first of them keeps its distance.
CMessageDispatcher::Time CMessageDispatcher::FindGapEnd(const Lock& lock, Time timeNow) const
{
    const auto isFree = [&](const SPending& pending) { return IsFree(lock, pending, timeNow); };
    const auto itFirst = std::find_if(listPending.cbegin(), listPending.cend(), isFree);
    return itFirst != listPending.cend() && CUserActivity::MakesRead(itFirst->nMessage) ? timeRead : Time();
}

// When the next message that waits for the user may go; never if there is none.
CMessageDispatcher::Time CMessageDispatcher::FindRelease(const Lock& lock, Time timeNow) const
{
    Time timeRelease = timeNever;
    for (const SPending& pending : listPending) {
        if (!IsFree(lock, pending, timeNow)) {
            timeRelease = std::min(timeRelease, activity.GetRelease(pending.nMessage, pending.timeFirst));
        }
    }
    return timeRelease;
}

bool CMessageDispatcher::IsFree(const Lock& /*lock*/, const SPending& pending, Time timeNow) const
{
    return pending.bBegun || pending.bReleased || activity.GetRelease(pending.nMessage, pending.timeFirst) <= timeNow;
}

// Releases the lock during each Notify.
void CMessageDispatcher::Deliver(Lock& lock, EnMessageSender sender, int nMessage, CObserver* pOnly)
{
    const std::vector<SSubscription> vecReceiver = vecSubscription;
    for (const SSubscription& receiver : vecReceiver) {
        if (bStop) {
            return;
        }
        const bool bMeant = pOnly ? pOnly == receiver.pObserver : true;
        if (receiver.sender != sender || !bMeant || !IsSubscribed(lock, receiver)) {
            continue;
        }
        pRunning = receiver.pObserver;
        lock.unlock();
        receiver.pObserver->Notify(nMessage);
        lock.lock();
        pRunning = nullptr;
        condDelivered.notify_all();
    }
}

bool CMessageDispatcher::IsSubscribed(const Lock& /*lock*/, const SSubscription& subscription) const
{
    return std::any_of(vecSubscription.cbegin(), vecSubscription.cend(), [&](const SSubscription& entry) {
        return entry.sender == subscription.sender && entry.pObserver == subscription.pObserver;
    });
}
