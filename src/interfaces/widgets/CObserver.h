#pragma once

/// Listens to the control library. The library calls Notify on a thread of its own.
///
/// @since 0.1
class CObserver
{
public:
    /// One number per event, without further data. Any thread; must return quickly and must not call
    /// back into the library.
    virtual void Notify(int nMessage) = 0;

protected:
    ~CObserver() = default;
};
