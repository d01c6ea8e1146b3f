#pragma once

#include "interfaces/control/IPreferenceControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the preferences, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns neither of the objects it is given.
class CPreferenceJournal : public IPreferenceControl
{
public:
    /// Both must outlive the decorator.
    CPreferenceJournal(IPreferenceControl& innerIn, CCallLog& journal);
    virtual ~CPreferenceJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    bool IsChiefMode() override;

private:
    IPreferenceControl& inner;
    const CCallWriter writer;
};
