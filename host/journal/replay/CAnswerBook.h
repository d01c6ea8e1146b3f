#pragma once

#include "journal/replay/SRecordedLine.h"
#include "journal/replay/SReplayedCall.h"

#include <QHash>
#include <QVector>

class CRecordedRun;

/// All answers of a run by what was asked: for calls that the recording does not have at that place. Any thread.
class CAnswerBook
{
public:
    /// run must outlive it.
    explicit CAnswerBook(const CRecordedRun& run);

    /// The last answer to that question from before a number, or else the first one; null when it was never asked. args has the
    /// recorded panel's ids.
    const SRecordedLine* Find(const SReplayedCall& call, const QJsonArray& args, quint64 nBefore) const;

private:
    QHash<QByteArray, QVector<const SRecordedLine*>> mapLine; ///< by object, operation and arguments; in their order
};
