#pragma once

#include "journal/SCallRecord.h"

#include <QMutex>
#include <QObject>

#include <vector>

class ICallRecorder;

/// The journal of control calls and messages: bounded, written from any thread, read by one reader.
///
/// Writing costs one short lock and never waits for the reader, so it may be done where the panel holds
/// locks of its own. When the journal is full the oldest record goes.
class CCallLog : public QObject
{
    Q_OBJECT

public:
    /// The thread that makes the journal gets number 0 in the records. nCapacity is the number of records that are kept, at
    /// least 1.
    explicit CCallLog(int nCapacity, QObject* parent = nullptr);

    /// Any thread. pObject is a literal.
    void Write(EnRecordKind kind, const char* pObject, const QString& strText);

    /// The records behind number nAfter that are still there, in order. Arms RecordsWaiting again.
    std::vector<SCallRecord> ReadAfter(quint64 nAfter);

    /// Who gets every call, message and note in full beside the lines here; null for nobody. Before any other thread uses
    /// the log; recorder must outlive it.
    void SetRecorder(ICallRecorder* pRecorderIn);
    ICallRecorder* GetRecorder() const;

    /// Number of the newest record, 0 while there is none.
    quint64 GetLastNumber() const;

signals:
    /// There is something to read. Emitted once, on the writing thread, until ReadAfter is called.
    void RecordsWaiting();

private:
    int GetThreadNumber() const;

    void PassNote(const char* pObject, const QString& strText);

    const int nFirstThread;
    ICallRecorder* pRecorder = nullptr;
    mutable QMutex mutex;               ///< guards the three fields below
    std::vector<SCallRecord> vecRecord; ///< a ring: number n stands at n modulo the capacity
    quint64 nLast = 0;
    bool bAnnounced = false;
};
