#pragma once

#include "interfaces/control/IProjectManageControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the open project, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns neither of the objects it is given.
class CProjectManageJournal : public IProjectManageControl
{
public:
    /// Both must outlive the decorator.
    CProjectManageJournal(IProjectManageControl& innerIn, CCallLog& journal);
    virtual ~CProjectManageJournal() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void GetProjectInfo(SProjectInfo& info) override;

private:
    IProjectManageControl& inner;
    const CCallWriter writer;
};
