#pragma once

#include "contract/SOutcome.h"
#include "contract/attempt/SAttempt.h"

#include <QMap>

#include <chrono>

class QProcess;

/// Makes an attempt in a process of its own, which ends with it: one that hangs or crashes is a broken promise, with
/// the calls up to there.
class CAttemptProcess
{
public:
    explicit CAttemptProcess(const SAttempt& attemptIn) : attempt(attemptIn) { }

    /// Blocks until the attempt has ended. Any thread. Once.
    SOutcome Run();

    /// What the attempt has said beyond its outcome; empty for nothing.
    QString GetTold(const QString& strKey) const;

private:
    using Time = std::chrono::steady_clock::time_point;

    bool Follow(QProcess& process);
    void TakeLine(const QString& strLine);
    void TakeCall(const QString& strKey, const QString& strText);
    bool TakeVerdict(const QString& strKey, const QString& strText);
    void EndWithoutVerdict(QProcess& process, bool bHung);
    void FinishStory();

    const SAttempt attempt;
    SOutcome outcome;
    bool bVerdict = false;
    bool bBegun = false;
    bool bRunning = false; ///< a call that has not returned
    QString strPending;    ///< a read that has not returned
    QStringList listPrepared;
    QMap<QString, QString> mapTold;
};
