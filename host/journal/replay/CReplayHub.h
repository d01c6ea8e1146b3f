#pragma once

#include <QString>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

class CObserver;

/// Who is attached to which object, and a thread that brings them the messages. Any thread but where a method says otherwise.
class CReplayHub
{
public:
    CReplayHub();

    /// Brings what waits, and ends the thread.
    ~CReplayHub();
    Q_DISABLE_COPY(CReplayHub)

    void Attach(const QString& strObject, CObserver* pObserver);

    /// When it returns, none of its notifications runs on another thread, and none will come.
    void Detach(const QString& strObject, CObserver* pObserver);

    /// Returns at once; the hub's thread notifies those attached to the object, one by one.
    void Post(const QString& strObject, int nMessage);

    /// The same on the calling thread, before it returns.
    void Send(const QString& strObject, int nMessage);

    /// Whether all that was posted has been brought.
    bool IsIdle() const;

private:
    struct SSubscription
    {
        QString strObject;
        CObserver* pObserver;

        bool operator==(const SSubscription& other) const
        {
            return strObject == other.strObject && pObserver == other.pObserver;
        }
    };
    struct SRunning
    {
        SSubscription subscription;
        std::thread::id idThread;
    };
    struct SMessage
    {
        QString strObject;
        int nMessage;
    };

    void Run();
    void Notify(const SSubscription& subscription, int nMessage);
    bool RunsElsewhere(const SSubscription& subscription) const;

    mutable std::mutex mutex; ///< guards all below but the thread; not held while an observer runs
    std::condition_variable condition;
    std::vector<SSubscription> vecSubscription;
    std::vector<SRunning> vecRunning;
    std::deque<SMessage> queue;
    bool bBringing = false; ///< a message has left the queue and is under way
    bool bEnd = false;
    std::thread thread; ///< the last field: it uses the others
};
