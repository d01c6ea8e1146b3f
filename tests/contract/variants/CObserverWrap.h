#pragma once

#include "interfaces/widgets/CObserver.h"

#include <functional>

/// Stands between the library and an observer, so that a variant decides what becomes of a message.
class CObserverWrap final : public CObserver
{
public:
    using Deliver = std::function<void(CObserver& observer, int nMessage)>;

    CObserverWrap(CObserver& observerIn, const Deliver& deliverIn) : observer(observerIn), deliver(deliverIn) { }

    void Notify(int nMessage) override
    {
        deliver(observer, nMessage);
    }

private:
    CObserver& observer;
    const Deliver deliver;
};
