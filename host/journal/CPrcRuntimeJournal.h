#pragma once

#include "interfaces/control/IPrcRuntimeControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the running state of the processors, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns neither of the objects it is given.
class CPrcRuntimeJournal : public IPrcRuntimeControl
{
public:
    /// Both must outlive the decorator.
    CPrcRuntimeJournal(IPrcRuntimeControl& innerIn, CCallLog& journal);
    virtual ~CPrcRuntimeJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;

private:
    IPrcRuntimeControl& inner;
    const CCallWriter writer;
};
