#include "CorvidControl/CDeletionWatch.h"

#include "CorvidControl/CJobs.h"
#include "CorvidControl/CSite.h"

CDeletionWatch::CDeletionWatch(const CSite& siteIn, const CJobs& jobsIn, const Keep& keepIn)
    : site(siteIn), jobs(jobsIn), keep(keepIn)
{ }

void CDeletionWatch::BeforeDeletion(int nNodes)
{
    const bool bJob = jobs.IsBusy();
    SListEdition edition;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const int nBefore = bJob ? nDeleted : 0;
        if (nBefore == 0) {
            editionFirst = site.GetEdition();
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
