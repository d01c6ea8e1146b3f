#pragma once

#include "CorvidControl/messages/EnMessageSender.h"
#include "CorvidControl/objects/CControlClock.h"

#include <mutex>
#include <vector>

class CObserver;

/// A message that is about to be delivered.
struct SMessageOnItsWay
{
    EnMessageSender sender;
    int nMessage;
    CObserver* pOnly; ///< the one receiver; null for all
};

/// What goes wrong with messages on their way to the observers: the next ones are lost, come twice, or change places. A message
/// counts once, when its equals are merged. What a new observer gets for itself comes as ever, and so does MessageSettled, which
/// does not pass here. All operations may be called on any thread.
class CMessageFaults
{
public:
    using Time = CControlClock::Time;

    /// How long those that change places wait for one another at most.
    static constexpr std::chrono::milliseconds timeGather{ 1000 };

    /// The next nCount are not delivered. nCount adds up with what is left of an earlier call, here and below.
    void Lose(int nCount);

    /// The next nCount are delivered twice, at once.
    void Double(int nCount);

    /// The next nCount wait for one another, and are delivered with the last first.
    void Reorder(int nCount);

    /// What is delivered now, in this order, in place of vecMessage.
    std::vector<SMessageOnItsWay> Pass(const std::vector<SMessageOnItsWay>& vecMessage, Time timeNow);

    /// When those that wait for one another go without the rest; Time::max() when none waits.
    Time GetDue() const;

private:
    using Lock = std::lock_guard<std::mutex>; ///< whoever takes one as a parameter works under it

    static bool Take(int& nLeft);
    void Admit(const Lock& lock, const SMessageOnItsWay& message, Time timeNow, std::vector<SMessageOnItsWay>& vecOut);
    void Release(const Lock& lock, std::vector<SMessageOnItsWay>& vecOut);

    mutable std::mutex mutex; ///< guards all below; taken within the dispatcher's
    int nLose = 0;
    int nDouble = 0;
    int nReorder = 0;
    std::vector<SMessageOnItsWay> vecWaiting; ///< those that change places, in the order in which they came
    Time timeDue = Time::max();
};
