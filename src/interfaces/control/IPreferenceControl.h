#pragma once

class CObserver;

/// Preferences of the user. All operations may be called on any thread. [C-library-4 required]
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IPreferenceControl
{
public:
    /// As IPrcBasicControl::Attach.
    virtual void Attach(CObserver* pObserver) = 0;

    /// As IPrcBasicControl::Detach.
    virtual void Detach(CObserver* pObserver) = 0;

    /// True while Chief-Member mode is on: only then are Chief marks drawn. [C-preference-1 not testable]
    virtual bool IsChiefMode() = 0;

protected:
    ~IPreferenceControl() = default;
};
