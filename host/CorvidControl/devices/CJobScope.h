#pragma once

#include "controlhost/CJobs.h"

/// A blocking call under way, for as long as it lives. On one thread.
class CJobScope
{
public:
    CJobScope(CJobs& jobsIn, const QString& strJobIn) : jobs(jobsIn), strJob(strJobIn)
    {
        jobs.Begin(strJob);
    }
    ~CJobScope()
    {
        jobs.End(strJob);
    }
    Q_DISABLE_COPY_MOVE(CJobScope)

    void SetProgress(int nDone, int nAll) const
    {
        jobs.SetProgress(strJob, nDone, nAll);
    }

private:
    CJobs& jobs;
    const QString strJob;
};
