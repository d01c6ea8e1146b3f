#pragma once

/// Listens to the control library. The library calls Notify on a thread of its own. [C-observer-1 recommended]
///
/// @since 0.1
class CObserver
{
public:
    /// One number per event, without further data. Any thread; must return quickly and must not call back into the library, which
    /// bears it all the same [C-observer-3 recommended] and holds no lock that a read needs [C-observer-2 recommended].
    virtual void Notify(int nMessage) = 0;

protected:
    ~CObserver() = default;
};
