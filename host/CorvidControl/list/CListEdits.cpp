#include "CorvidControl/list/CListEdits.h"

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
    while (!listEdit.isEmpty()) {
        const SListEdit edit = listEdit.takeFirst();
        lock.unlock();
        receiver(edit);
        lock.lock();
    }
    bDelivering = false;
}
