#pragma once

#include <QList>
#include <QPair>
#include <QStringList>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

class CObserver;

/// Who listens to which control object, and the thread that delivers messages to them.
class CObserverHub
{
public:
    CObserverHub();

    /// Delivers what is queued and ends the thread.
    ~CObserverHub();
    Q_DISABLE_COPY(CObserverHub)

    void Attach(const QString& strObject, CObserver* pObserver);

    /// When it returns, no delivery through this subscription is running on another thread and none
    /// will come.
    void Detach(const QString& strObject, CObserver* pObserver);

    /// Queues a message for the hub's own thread. An empty strObject: each attached observer hears it
    /// once, however often it is attached; else once a subscription to that object.
    void Raise(int nMessage, const QString& strObject);

    /// The same on the caller's thread, which returns after the deliveries.
    void Deliver(int nMessage, const QString& strObject);

    /// True when the queue is empty and all is delivered within nTimeout milliseconds.
    bool WaitForDelivery(int nTimeout);

    /// The objects that have an observer, in the order of attaching.
    QStringList Attached() const;

private:
    using SSubscription = QPair<QString, CObserver*>;
    struct SRunning
    {
        SSubscription subscription;
        std::thread::id idThread;
    };

    void Run();
    QList<SSubscription> Recipients(const QString& strObject) const;
    void DeliverTo(const SSubscription& subscription, int nMessage);
    bool RunsElsewhere(const SSubscription& subscription) const;

    mutable std::mutex mutex;          ///< guards the fields below but the thread
    std::condition_variable condition; ///< any of them changed
    QList<SSubscription> listSubscription;
    QList<SRunning> listRunning;
    std::deque<QPair<int, QString>> queue;
    bool bDelivering = false; ///< the thread works on a message that left the queue
    bool bEnd = false;
    std::thread thread; ///< last, so that it starts after the others
};
