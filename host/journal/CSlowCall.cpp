#include "journal/CSlowCall.h"

#include "journal/CCallWriter.h"

CSlowCall::CSlowCall(const CCallWriter& callWriter, const char* pOperationName) : writer(callWriter), pOperation(pOperationName)
{
    timer.start();
}

CSlowCall::~CSlowCall()
{
    writer.Finished(pOperation, timer.elapsed());
}
