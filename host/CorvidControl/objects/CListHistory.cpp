#include "CorvidControl/objects/CListHistory.h"

#include "CorvidControl/list/CProcessorList.h"
#include "controlhost/CJobs.h"

CListHistory::CListHistory(CProcessorList& processorsIn, CJobs& jobsIn) : processors(processorsIn), jobs(jobsIn) { }

void CListHistory::SetKeeper(const std::function<void(const SListEdition&)>& keeperNew)
{
    Q_ASSERT(!keeper);
    keeper = keeperNew;
}

SFault CListHistory::FindFault(const SListSnapshot& from, const SListSnapshot& to) const
{
    const bool bBusy = jobs.IsBusy() || !jobs.GetRunning().isEmpty();
    const SFault fault = processors.FindRestoreFault(from, to);
    return bBusy && fault.reason != ReasonListLocked ? SFault{ ReasonBusy, {} } : fault;
}

bool CListHistory::Restore(const SListSnapshot& from, const SListSnapshot& to)
{
    const SFault fault = TryRestore(from, to);
    if (!fault.IsNone()) {
        processors.Refuse(SenderPrcList, { CommandRestore, QStringLiteral("Restoring the list"), {} }, fault);
    }
    return fault.IsNone();
}

SFault CListHistory::TryRestore(const SListSnapshot& from, const SListSnapshot& to)
{
    const SFault faultNow = FindFault(from, to);
    if (!faultNow.IsNone()) {
        return faultNow;
    }
    SListRestore restore;
    const SFault fault = processors.Restore(from, to, restore);
    if (fault.IsNone() && keeper && restore.discovered.listGone.size() > 1) {
        keeper(restore.before);
    }
    return fault;
}
