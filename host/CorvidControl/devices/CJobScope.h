#pragma once

#include "controlhost/CJobs.h"

/// A blocking call under way, for as long as it lives. On one thread.
class CJobScope
{
public:
    /// jobsIn must outlive it; strJob as in CJobs::Begin.
    CJobScope(CJobs& jobsIn, const QString& strJob) : jobs(jobsIn), nJob(jobs.Begin(strJob)) { }
    ~CJobScope()
    {
        jobs.End(nJob);
    }
    Q_DISABLE_COPY_MOVE(CJobScope)

    /// As CJobs::SetProgress.
    void SetProgress(int nDone, int nAll) const
    {
        jobs.SetProgress(nJob, nDone, nAll);
    }

private:
    CJobs& jobs;
    const int nJob;
};
