#pragma once

#include <QElapsedTimer>
#include <QString>

class CCallWriter;
class CJobs;

/// Brackets one call that may block: counts it among the jobs, and writes into the journal how long it took, in
/// milliseconds, when the bracket ends. Stands on the stack of the thread that calls.
class CSlowCall
{
public:
    /// pOperation is a literal; strJob says what it does, for display.
    CSlowCall(const CCallWriter& writerIn, CJobs& jobsIn, const char* pOperationIn, const QString& strJob);
    ~CSlowCall();
    Q_DISABLE_COPY(CSlowCall)

private:
    const CCallWriter& writer;
    CJobs& jobs;
    const char* pOperation;
    const int nJob;
    QElapsedTimer timer;
};
