#include "CorvidControl/list/CListEdits.h"

#include <QScopeGuard>

void CListEdits::Append(const SListEdit& edit)
{
    const std::lock_guard<std::mutex> lock(mutex);
    listEdit.append(edit);
}

void CListEdits::Deliver()
{
    std::unique_lock<std::mutex> lock(mutex);
    if (bDelivering) {
        return;
    }
    bDelivering = true;
    const auto end = qScopeGuard([&] { // the receiver may throw
        if (!lock.owns_lock()) {
            lock.lock();
        }
        bDelivering = false;
    });
    while (!listEdit.isEmpty()) {
        const SListEdit edit = listEdit.takeFirst();
        lock.unlock();
        receiver(edit);
        lock.lock();
    }
}
