#pragma once

#include <QElapsedTimer>
#include <QString>

class CBusyMonitor;
class CCallWriter;

/// Brackets one call that may block: tells the monitor that it runs and the journal how long it took.
class CSlowCall
{
public:
    /// pOperation is a literal.
    CSlowCall(CBusyMonitor& busyMonitor, const CCallWriter& callWriter, const char* pOperationName);
    ~CSlowCall();
    Q_DISABLE_COPY(CSlowCall)

private:
    CBusyMonitor& monitor;
    const CCallWriter& writer;
    const char* pOperation;
    QElapsedTimer timer;
};
