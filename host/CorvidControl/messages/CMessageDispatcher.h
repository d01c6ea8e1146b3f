#pragma once

#include "CorvidControl/messages/CUserActivity.h"
#include "CorvidControl/messages/EnMessageSender.h"
#include "CorvidControl/objects/CControlClock.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

class CMessageFaults;
class CObserver;
struct SMessageOnItsWay;

/// Delivers messages to observers on a thread of its own, never in the caller's stack and never with a
/// lock held. Equal messages that wait are merged, and delivery starts when no message has come for
/// timeQuiet, at the latest after timeLongest: a burst of reports ends in one reading. Each burst is
/// followed by one MessageSettled of SenderProtocal. All operations may be called on any thread.
///
/// Between two messages that make observers read lies timeGap, so that no second has more than 20 of them, whenever it begins,
/// and none waits for a reader that takes less for each. The first after a pause is not delayed. Where several of a burst make
/// observers read, its rest goes on in its order, one each timeGap, and what comes meanwhile stands behind it.
///
/// While the user is in the middle of something, messages wait as CUserActivity says, each from when the
/// first of its equals came. What waits delays no reading and goes along, in the order in which it was
/// raised, with the first message for all observers that makes them read: they read everything then.
class CMessageDispatcher
{
public:
    static constexpr std::chrono::milliseconds timeQuiet{ 15 };
    static constexpr std::chrono::milliseconds timeLongest{ 120 };
    static constexpr std::chrono::milliseconds timeGap{ 50 };
    static constexpr std::chrono::milliseconds timeSettle{ 60 };

    /// clockIn must outlive it, and so must what goes wrong on purpose; null for nothing.
    explicit CMessageDispatcher(const CControlClock& clockIn = CControlClock::GetSystem(), CMessageFaults* pFaultsIn = nullptr);

    /// As Stop.
    ~CMessageDispatcher();

    /// Subscribes pObserver, which stays the caller's, to what sender sends; a second time changes nothing. A new observer of
    /// SenderPrcList gets a MessageListChanged for itself, so that it reads what there is.
    void Attach(EnMessageSender sender, CObserver* pObserver);

    /// Unsubscribes. Waits for a Notify of pObserver that is running, unless called from within it.
    void Detach(EnMessageSender sender, CObserver* pObserver);

    /// Files a message of sender and returns at once. nMessage may be any number; equal ones that wait are merged.
    void Post(EnMessageSender sender, int nMessage);

    /// An editor of a row is open. When it closes, all that waited for it goes, even if the user is acting by then.
    void SetUserEditing(bool bOn);

    /// A mouse button is down, a drag or a menu runs.
    void SetUserActing(bool bOn);

    /// A key, a button or the wheel, just now.
    void NoteUserInput();

    /// Drops what waits, ends and joins the thread; a second time does nothing. Not from within a Notify.
    void Stop();

private:
    using Lock = std::unique_lock<std::mutex>; ///< whoever takes one as a parameter works under it
    using Time = CControlClock::Time;

    struct SSubscription
    {
        EnMessageSender sender;
        CObserver* pObserver;
    };

    struct SPending
    {
        EnMessageSender sender;
        int nMessage;
        CObserver* pOnly; ///< the one receiver; null for all
        Time timeFirst;
        Time timeLast;          ///< when the last of its equals came
        bool bReleased = false; ///< the editor that it waited for has closed
        bool bBegun = false;    ///< others of its burst have gone: it waits for its distance alone
    };

    void Run();
    void Enqueue(const Lock& lock, EnMessageSender sender, int nMessage, CObserver* pOnly);
    void Send(Lock& lock, const SMessageOnItsWay& message);
    bool AwaitBurst(Lock& lock);
    void WaitUntil(Lock& lock, Time timeEnd);
    std::deque<SPending> TakeTurn(const Lock& lock);
    std::deque<SPending> TakeBurst(const Lock& lock);
    std::vector<SMessageOnItsWay> Disturb(const Lock& lock, const std::deque<SPending>& listBurst) const;
    Time FindBurst(const Lock& lock, Time timeNow) const;
    Time FindGapEnd(const Lock& lock, Time timeNow) const;
    Time FindRelease(const Lock& lock, Time timeNow) const;
    bool IsFree(const Lock& lock, const SPending& pending, Time timeNow) const;
    void Deliver(Lock& lock, EnMessageSender sender, int nMessage, CObserver* pOnly);
    bool IsSubscribed(const Lock& lock, const SSubscription& subscription) const;

    const CControlClock& clock;
    CMessageFaults* const pFaults;

    std::mutex mutex; ///< guards all fields below but threadDelivery; held for moments only, never in a Notify
    std::condition_variable condWork;
    std::condition_variable condDelivered;
    std::vector<SSubscription> vecSubscription;
    std::deque<SPending> listPending;
    CUserActivity activity;
    Time timeSettled; ///< when MessageSettled is due
    Time timeRead;    ///< when the next message that makes observers read may go
    bool bUnsettled = false;
    bool bStop = false;
    CObserver* pRunning = nullptr; ///< whose Notify is running

    std::thread threadDelivery;
};
