#pragma once

#include "controlhost/SListEdit.h"

#include <QList>

#include <functional>
#include <mutex>

/// The edits that wait to be reported, in the order of the changes. Whoever changes the list appends under the list's
/// lock and delivers without it. One thread at a time delivers, all that wait; what is appended meanwhile, by the
/// receiver itself or on another thread, is delivered behind it, and nobody waits for anybody. All operations may
/// be called on any thread.
class CListEdits
{
public:
    using Receiver = std::function<void(const SListEdit&)>;

    /// receiverIn runs without a lock.
    explicit CListEdits(const Receiver& receiverIn) : receiver(receiverIn) { }

    /// Under the lock of the list.
    void Append(const SListEdit& edit);

    /// Without a lock.
    void Deliver();

private:
    const Receiver receiver;

    std::mutex mutex; ///< guards all below; taken last, never held while delivering
    QList<SListEdit> listEdit;
    bool bDelivering = false;
};
