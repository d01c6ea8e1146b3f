#include "CorvidControl/list/CDeletionWatch.h"

#include "CorvidControl/list/CProcessorList.h"
#include "controlhost/CJobs.h"

CDeletionWatch::CDeletionWatch(const CProcessorList& processorsIn, const CJobs& jobsIn, const Keep& keepIn)
    : processors(processorsIn), jobs(jobsIn), keep(keepIn)
{ }

void CDeletionWatch::BeforeDeletion(int nNodes)
{
    const bool bJob = jobs.IsBusy();
    SListEdition edition;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nBefore = bJob ? nDeleted : 0;
        if (nBefore == 0) {
            editionFirst = processors.GetEdition();
        }
        nDeleted = nBefore + nNodes;
        if (nBefore > 1 || nDeleted < 2) {
            return;
        }
        edition = editionFirst;
    }
    keep(edition);
}

void CDeletionWatch::EndJob()
{
    const std::lock_guard<std::mutex> lock(mutex);
    nDeleted = 0;
    editionFirst = {};
}
