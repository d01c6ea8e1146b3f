#pragma once

#include "CorvidControl/list/SListEdition.h"

#include <functional>
#include <mutex>

class CJobs;
class CProcessorList;

/// Notices a job that deletes more than one node of the list, and has the list kept as it was before the
/// first of them. The panel deletes node by node: what it does while the library is busy is one job, and
/// without that each call is one. A group counts with the processors that go with it. All operations may
/// be called on any thread.
class CDeletionWatch
{
public:
    using Keep = std::function<void(const SListEdition&)>;

    /// keepIn runs without a lock, on the thread that is about to delete. All references must outlive the watch.
    CDeletionWatch(const CProcessorList& processorsIn, const CJobs& jobsIn, const Keep& keepIn);

    /// nNodes, at least one, are about to be deleted in one step. Before the second of a job it blocks until the
    /// list is kept.
    void BeforeDeletion(int nNodes);

    /// The busy state begins or ends: the next deletion is the first of a job.
    void EndJob();

private:
    const CProcessorList& processors;
    const CJobs& jobs;
    const Keep keep;

    std::mutex mutex; ///< guards all below; never held while the list is kept
    SListEdition editionFirst;
    int nDeleted = 0; ///< of this job
};
