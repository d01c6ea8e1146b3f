#pragma once

#include "journal/recording/CJournalFormat.h"
#include "journal/recording/CJournalRing.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include <sys/types.h>

/// Writes a recording on a thread of its own, so that nobody waits for the disk, and twenty milliseconds late, so that
/// it is not in the way of what it records.
///
/// Records wait in a bounded queue. When three quarters of it are taken, calls that only read are dropped, and when it is
/// full everything is; the next line that is written says how many were lost, and of which kind. What the disk refuses is
/// counted in the same way, and each further line is a new attempt. Its lock is the innermost: nothing is called under it.
class CJournalWriter
{
public:
    explicit CJournalWriter(const SRecordingLimits& limitsIn = {});

    /// Writes what waits, then the line of the end.
    ~CJournalWriter();
    Q_DISABLE_COPY(CJournalWriter)

    /// fnTroubleIn hears on the writing thread why the disk takes nothing, one line, and an empty one when it does again. Before
    /// Open.
    void SetTrouble(const std::function<void(const QString&)>& fnTroubleIn);

    /// Begins to write into that folder; until then records only wait. vecHeaderIn is the first line of each file, to which
    /// the kind, the times, the mask, the number of the file in this run and the last state are added. Once.
    void Open(const QString& strFolder, const std::vector<SJournalField>& vecHeaderIn, bool bMask);

    /// Any thread. Never waits for the disk.
    void Push(SJournalRecord&& record);

    /// Waits until all that was pushed before is in the file or lost; at most the given time. False when that was too short.
    bool Flush(std::chrono::milliseconds time);

    /// Whether nothing waits. Any thread, also in the handler of a signal.
    bool IsWritten() const noexcept;

    /// Whether the caller is the writing thread; as IsWritten.
    bool IsWritingThread() const noexcept;

    quint64 GetLost() const;  ///< records so far; any thread
    QString GetError() const; ///< why the disk took nothing, at its last refusal; empty while all is well. Any thread

private:
    struct SLost
    {
        quint64 nReads = 0;   ///< dropped, the queue was three quarters full
        quint64 nOthers = 0;  ///< dropped, it was full
        quint64 nRefused = 0; ///< by the disk
    };

    void Run();
    void WriteBatch(const std::vector<SJournalRecord>& vecBatch);
    void WriteRecord(const SJournalRecord& record);
    bool PrepareFile();
    bool WriteLost();
    void NoteRefusal();
    QByteArray GetHeader();
    std::vector<SJournalRecord> Await();

    const SRecordingLimits limits;
    const std::chrono::steady_clock::time_point timeStart = std::chrono::steady_clock::now();

    mutable std::mutex mutex; ///< guards what follows, down to strError
    std::condition_variable condWork;
    std::condition_variable condDone;
    std::vector<SJournalRecord> vecQueue;
    SLost lost; ///< not yet in the file
    quint64 nLost = 0;
    bool bSleeping = false; ///< the thread waits to be woken
    bool bEnd = false;
    quint64 nFlushTo = 0; ///< somebody waits for as many records
    QString strError;

    std::atomic<quint64> nQueued{ 0 }; ///< records that were ever taken into the queue
    std::atomic<quint64> nDone{ 0 };   ///< of them, that have left the thread's hands
    std::atomic<pid_t> nThread{ 0 };   ///< of the writing thread, as the kernel counts

    // Of the writing thread alone.
    std::unique_ptr<CJournalFormat> pFormat;
    std::unique_ptr<CJournalRing> pRing;
    std::vector<SJournalField> vecHeader;
    std::vector<SJournalField> vecState; ///< the fields of the last record that was a state
    std::function<void(const QString&)> fnTrouble = [](const QString&) { };
    int nFile = 0;

    std::thread thread;
};
