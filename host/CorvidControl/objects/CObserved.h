#pragma once

#include "CorvidControl/messages/CMessageDispatcher.h"

/// What the seven objects with observers have in common: the observers are the dispatcher's, under the
/// object's own sender. The slots stay in the order of the interface, and none is added.
template <typename Interface, EnMessageSender sender> class CObserved : public Interface
{
public:
    /// Any thread. pObserver stays the caller's and must live until it is detached; a second time changes nothing.
    void Attach(CObserver* pObserver) override
    {
        dispatcher.Attach(sender, pObserver);
    }

    /// Any thread. Blocks until a Notify of pObserver that is running has returned, unless called from within it.
    void Detach(CObserver* pObserver) override
    {
        dispatcher.Detach(sender, pObserver);
    }

protected:
    explicit CObserved(CMessageDispatcher& dispatcherIn) : dispatcher(dispatcherIn) { }
    ~CObserved() = default;

    CMessageDispatcher& dispatcher;
};
