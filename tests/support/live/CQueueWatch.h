#pragma once

#include "interfaces/widgets/CObserver.h"

#include <QSet>
#include <QVector>

#include <chrono>
#include <functional>
#include <mutex>

class CBaseThread;

/// Writes down when messages that make the panel read have come, and how many the panel's worker had in its queue by then, the
/// one that it works on included. Attach it behind the panel, so that it hears each message just after it.
class CQueueWatch : public CObserver
{
public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~CQueueWatch() = default;

    /// Null looks at no queue. pWorkerIn, a worker that lives until the watch is detached, stays its owner's.
    void SetWorker(CBaseThread* pWorkerIn);

    /// By which time messages are written down; without one, by the machine's steady clock. Before AttachAll, or while nothing
    /// comes.
    void SetClock(const std::function<Time()>& fnNowIn);

    /// To the seven objects that are published now.
    void AttachAll();
    void DetachAll();

    /// Any thread.
    void Notify(int nMessage) override;

    /// Forgets what has come. Any thread, as those below.
    void Clear();

    /// Whether nMessage, which may be any number, has come since Clear.
    bool HasCome(int nMessage) const;

    /// How many messages have made the panel read since Clear.
    int GetCount() const;

    /// The most that have come within one second, which may begin at any time.
    int GetMostInASecond() const;

    /// How many messages wait in the queue now.
    int GetQueued() const;

    /// The longest queue, message 59 counted.
    int GetLongestQueue() const;

    /// The most of vecTime, which is in order, that lie within one second.
    static int CountMostInASecond(const QVector<Time>& vecTime);

private:
    mutable std::mutex mutex; ///< guards all below
    CBaseThread* pWorker = nullptr;
    std::function<Time()> fnNow = &std::chrono::steady_clock::now;
    QSet<int> setCome;
    QVector<Time> vecTime;
    int nLongestQueue = 0;
};
