#pragma once

#include "CorvidControl/faults/CCallGate.h"
#include "CorvidControl/messages/CMessageDispatcher.h"

/// What the seven objects with observers have in common: the observers are the dispatcher's, under the
/// object's own sender. The slots stay in the order of the interface, and none is added.
template <typename Interface, EnMessageSender sender> class CObserved : public Interface
{
public:
    /// Any thread. pObserver stays the caller's and must live until it is detached; a second time changes nothing.
    void Attach(CObserver* pObserver) override
    {
        gate.Enter("Attach");
        dispatcher.Attach(sender, pObserver);
    }

    /// Any thread. Blocks until a Notify of pObserver that is running has returned, unless called from within it. Where it is to
    /// throw it has detached before: nobody is called who has gone.
    void Detach(CObserver* pObserver) override
    {
        dispatcher.Detach(sender, pObserver);
        gate.Enter("Detach");
    }

protected:
    /// szObject is a literal, as the journal names the object. The references must outlive it.
    CObserved(CMessageDispatcher& dispatcherIn, CCallFaults& faults, const char* szObject)
        : dispatcher(dispatcherIn), gate(faults, szObject)
    { }
    ~CObserved() = default;

    CMessageDispatcher& dispatcher;
    const CCallGate gate;
};
