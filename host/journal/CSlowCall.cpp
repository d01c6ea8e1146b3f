#include "journal/CSlowCall.h"

#include "journal/CBusyMonitor.h"
#include "journal/CCallWriter.h"

CSlowCall::CSlowCall(CBusyMonitor& busyMonitor, const CCallWriter& callWriter, const char* pOperationName)
    : monitor(busyMonitor), writer(callWriter), pOperation(pOperationName)
{
    monitor.Begin(QLatin1String(pOperation));
    timer.start();
}

CSlowCall::~CSlowCall()
{
    writer.Finished(pOperation, timer.elapsed());
    monitor.End(QLatin1String(pOperation));
}
