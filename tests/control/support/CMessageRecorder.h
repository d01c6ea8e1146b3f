#pragma once

#include "interfaces/widgets/CObserver.h"

#include <QVector>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// An observer of all seven objects that writes down what it hears.
class CMessageRecorder : public CObserver
{
public:
    virtual ~CMessageRecorder() = default;

    /// To the seven objects that are published now, in the panel's order.
    void AttachAll();
    void DetachAll();

    void Notify(int nMessage) override;

    /// Waits until nMessage has come since the last Clear. False after ten seconds without it.
    bool Await(int nMessage);

    /// Waits for the end of the burst that is under way and forgets all that has come.
    void Clear();

    /// What has come since the last Clear; MessageSettled is left out.
    QVector<int> GetMessages();

    /// As GetMessages, after everything that was raised before the call has been delivered.
    QVector<int> GetAllMessages();

    std::thread::id GetThread(); ///< that of the last Notify

    std::function<void(int)> onNotify; ///< called within Notify; set it before AttachAll

private:
    static constexpr int nMark = 777; ///< a number that means nothing to anybody

    std::mutex mutex; ///< guards all below
    std::condition_variable condCome;
    QVector<int> vecMessage;
    std::thread::id idThread;
};
