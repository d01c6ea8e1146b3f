#pragma once

#include "interfaces/control/IPreferenceControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the preferences, then carries it out. Owns neither of the objects it is given.
class CPreferenceJournal : public IPreferenceControl
{
public:
    CPreferenceJournal(IPreferenceControl& innerIn, CCallLog& journal);
    virtual ~CPreferenceJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    bool IsChiefMode() override;

private:
    IPreferenceControl& inner;
    const CCallWriter writer;
};
