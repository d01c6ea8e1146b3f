#include "CDispatcherRig.h"

#include "Patience.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace {

constexpr int nFirstMark = 1000; // numbers that mean nothing to anybody

} // namespace

CDispatcherRig::CDispatcherRig() : nMark(nFirstMark)
{
    for (int nSender = SenderPrcBasic; nSender <= SenderPreference; ++nSender) {
        dispatcher.Attach(EnMessageSender(nSender), &recorder);
    }
    HearAfter(CMessageDispatcher::timeSettle);
    clock.Turn(CMessageDispatcher::timeGap);
    Forget();
}

void CDispatcherRig::PostDevice()
{
    dispatcher.Post(SenderPrcRuntime, MessageDevicesChanged);
}

void CDispatcherRig::PostCommand(int nMessage)
{
    dispatcher.Post(SenderPrcList, nMessage);
}

QVector<int> CDispatcherRig::HearAfter(std::chrono::milliseconds time)
{
    clock.Turn(time);
    dispatcher.Post(SenderPrcBasic, ++nMark);
    AwaitMark(clock.Turn(CMessageDispatcher::timeQuiet));
    return Hear();
}

QVector<int> CDispatcherRig::HearNow()
{
    return HearAfter(std::chrono::milliseconds(0));
}

QVector<int> CDispatcherRig::Hear()
{
    QVector<int> vecHeard;
    const QVector<int> vecAll = recorder.GetMessages();
    std::copy_if(vecAll.cbegin() + nForgotten, vecAll.cend(), std::back_inserter(vecHeard),
                 [](int nMessage) { return nMessage < nFirstMark; });
    return vecHeard;
}

void CDispatcherRig::Step()
{
    clock.AwaitWait(clock.Turn(std::chrono::milliseconds(1)), std::chrono::milliseconds(nPatience));
}

bool CDispatcherRig::IsAsleep() const
{
    return clock.GetAlarm() != CControlClock::Time();
}

void CDispatcherRig::Forget()
{
    nForgotten = recorder.GetMessages().size();
}

// What is due and does not come although the dispatcher has looked at the clock keeps its distance.
void CDispatcherRig::AwaitMark(int nWaits)
{
    const QDeadlineTimer deadline(nPatience);
    while (!deadline.hasExpired()) {
        const bool bWaits = clock.GetWaits() > nWaits;
        if (recorder.GetMessages().contains(nMark)) {
            return;
        }
        if (bWaits) {
            nWaits = clock.Turn(std::chrono::milliseconds(1));
        } else {
            clock.AwaitWait(nWaits, std::chrono::milliseconds(1));
        }
    }
}
