#include "journal/CSlowCall.h"

#include "controlhost/CJobs.h"
#include "journal/CCallWriter.h"

CSlowCall::CSlowCall(const CCallWriter& writerIn, CJobs& jobsIn, const char* pOperationIn, const QString& strJob)
    : writer(writerIn), jobs(jobsIn), pOperation(pOperationIn), nJob(jobs.Begin(strJob))
{
    timer.start();
}

CSlowCall::~CSlowCall()
{
    writer.Finished(pOperation, timer.elapsed());
    jobs.End(nJob); // who waits for the end may end the journal then
}
