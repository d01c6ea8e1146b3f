#pragma once

#include "CorvidControl/EnMessageSender.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

class CObserver;

/// Delivers messages to observers on a thread of its own, never in the caller's stack and never with a
/// lock held. Equal messages that wait are merged, and delivery starts when no message has come for
/// timeQuiet, at the latest after timeLongest: a burst of reports ends in one reading. Each burst is
/// followed by one MessageSettled of SenderProtocal. All operations may be called on any thread.
class CMessageDispatcher
{
public:
    static constexpr std::chrono::milliseconds timeQuiet{ 15 };
    static constexpr std::chrono::milliseconds timeLongest{ 120 };
    static constexpr std::chrono::milliseconds timeSettle{ 60 };

    CMessageDispatcher();

    /// As Stop.
    ~CMessageDispatcher();

    /// Subscribes pObserver to what sender sends; a second time changes nothing. A new observer of
    /// SenderPrcList gets a MessageListChanged for itself, so that it reads what there is.
    void Attach(EnMessageSender sender, CObserver* pObserver);

    /// Unsubscribes. Waits for a Notify of pObserver that is running, unless called from within it.
    void Detach(EnMessageSender sender, CObserver* pObserver);

    void Post(EnMessageSender sender, int nMessage);

    /// Drops what waits, ends and joins the thread. Not from within a Notify.
    void Stop();

private:
    using Clock = std::chrono::steady_clock;

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
    };

    void Run();
    void Enqueue(const SPending& pending);
    bool AwaitBurst(std::unique_lock<std::mutex>& lock);
    void AwaitQuiet(std::unique_lock<std::mutex>& lock);
    void Deliver(std::unique_lock<std::mutex>& lock, const SPending& pending);
    bool IsSubscribed(const SSubscription& subscription) const;

    std::mutex mutex; ///< guards all fields below but threadDelivery
    std::condition_variable condWork;
    std::condition_variable condDelivered;
    std::vector<SSubscription> vecSubscription;
    std::deque<SPending> listPending;
    Clock::time_point timeFirst;
    Clock::time_point timeLast;
    Clock::time_point timeSettled; ///< when MessageSettled is due
    bool bUnsettled = false;
    bool bStop = false;
    CObserver* pRunning = nullptr; ///< whose Notify is running

    std::thread threadDelivery;
};
