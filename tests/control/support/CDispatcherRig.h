#pragma once

#include "CHandClock.h"
#include "CMessageRecorder.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"

#include <QVector>

/// A dispatcher by a clock of the test's, and an observer of all senders that has read the beginning long ago.
class CDispatcherRig
{
public:
    CDispatcherRig();

    /// As a device does.
    void PostDevice();

    /// As a command of the user does.
    void PostCommand(int nMessage = MessageListChanged);

    /// Lets the time pass, and that of a burst with all that it delivers, and returns what has come since the last Forget.
    QVector<int> HearAfter(std::chrono::milliseconds time);

    /// As HearAfter, in no time but that of the burst.
    QVector<int> HearNow();

    /// What has come since the last Forget.
    QVector<int> Hear();

    /// Lets a millisecond pass and returns when the dispatcher waits again. Something must wait or have to settle.
    void Step();

    /// Whether the thread of the dispatcher waits for a time; also true just before it is notified.
    bool IsAsleep() const;

    void Forget();

    CHandClock clock;
    CMessageDispatcher dispatcher{ clock };
    CMessageRecorder recorder;

private:
    void AwaitMark(int nWaits);

    int nMark;
    int nForgotten = 0;
};
