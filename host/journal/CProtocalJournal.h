#pragma once

#include "interfaces/control/IProtocalControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the protocol, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns neither of the objects it is given.
class CProtocalJournal : public IProtocalControl
{
public:
    /// Both must outlive the decorator.
    CProtocalJournal(IProtocalControl& innerIn, CCallLog& journal);
    virtual ~CProtocalJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    IProtocalControl& inner;
    const CCallWriter writer;
};
