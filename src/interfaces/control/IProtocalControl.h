#pragma once

class CObserver;

/// The protocol that talks to the processors. The panel only listens to it. All operations may be called on
/// any thread. [C-library-4 required]
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IProtocalControl
{
public:
    /// As IPrcBasicControl::Attach.
    virtual void Attach(CObserver* pObserver) = 0;

    /// As IPrcBasicControl::Detach.
    virtual void Detach(CObserver* pObserver) = 0;

protected:
    ~IProtocalControl() = default;
};
