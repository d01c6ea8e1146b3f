#pragma once

#include "CorvidControl/list/SFault.h"
#include "CorvidControl/list/SListRestore.h"
#include "controlhost/SListSnapshot.h"

#include <functional>

class CJobs;
class CProcessorList;

/// Takes edits back and makes them again, with the devices behind them. A restore is one step under the list's own
/// lock: what a command, a report or another restore does at the same time comes wholly before it or wholly after it. A
/// job that begins meanwhile is no exception; that none is under way is asked for the user's sake. All operations may be called
/// on any thread.
class CListHistory
{
public:
    /// All references must outlive it.
    CListHistory(CProcessorList& processorsIn, CJobs& jobsIn);

    /// Sets who keeps the Discovered list from which a restore has taken more than one processor. Called on the thread of the
    /// restore, which may wait for it; without a lock. Once, before the first restore.
    void SetKeeper(const std::function<void(const SListEdition&)>& keeperNew);

    /// Why Restore would refuse now; none when it would not.
    SFault FindFault(const SListSnapshot& from, const SListSnapshot& to) const;

    /// All or nothing. False when it was refused: a line is logged then and a message sent.
    bool Restore(const SListSnapshot& from, const SListSnapshot& to);

private:
    SFault TryRestore(const SListSnapshot& from, const SListSnapshot& to);

    CProcessorList& processors;
    CJobs& jobs;
    std::function<void(const SListEdition&)> keeper;
};
