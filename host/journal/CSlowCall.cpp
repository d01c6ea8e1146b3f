#include "journal/CSlowCall.h"

#include "controlhost/CJobs.h"
#include "journal/CCallWriter.h"

CSlowCall::CSlowCall(const CCallWriter& writerIn, CJobs& jobsIn, const char* pOperationIn, const QString& strJobIn)
    : writer(writerIn), jobs(jobsIn), pOperation(pOperationIn), strJob(strJobIn)
{
    timer.start();
    jobs.Begin(strJob);
}

CSlowCall::~CSlowCall()
{
    writer.Finished(pOperation, timer.elapsed());
    jobs.End(strJob); // who waits for the end may end the journal then
}
