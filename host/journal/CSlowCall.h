#pragma once

#include <QElapsedTimer>
#include <QString>

class CCallWriter;

/// Brackets one call that may block: writes into the journal how long it took, in milliseconds, when the bracket
/// ends. Stands on the stack of the thread that calls.
class CSlowCall
{
public:
    /// pOperation is a literal.
    CSlowCall(const CCallWriter& writerIn, const char* pOperationIn);
    ~CSlowCall();
    Q_DISABLE_COPY(CSlowCall)

private:
    const CCallWriter& writer;
    const char* pOperation;
    QElapsedTimer timer;
};
