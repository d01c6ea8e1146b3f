#include "journal/CSlowCall.h"

#include "journal/CCallWriter.h"

CSlowCall::CSlowCall(const CCallWriter& writerIn, const char* pOperationIn) : writer(writerIn), pOperation(pOperationIn)
{
    timer.start();
}

CSlowCall::~CSlowCall()
{
    writer.Finished(pOperation, timer.elapsed());
}
