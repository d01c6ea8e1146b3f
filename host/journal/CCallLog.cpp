#include "journal/CCallLog.h"

#include "journal/recording/ICallRecorder.h"
#include "journal/recording/SJournalRecord.h"

#include <QDateTime>
#include <QMutexLocker>

#include <algorithm>
#include <atomic>
#include <utility>

namespace {

/// A small number for the calling thread, the same for its whole life.
int NumberOfThisThread()
{
    static std::atomic<int> nNext{ 1 };
    thread_local const int nNumber = nNext++;
    return nNumber;
}

} // namespace

CCallLog::CCallLog(int nCapacity, QObject* parent)
    : QObject(parent), nFirstThread(NumberOfThisThread()), vecRecord(static_cast<size_t>(std::max(1, nCapacity)))
{ }

void CCallLog::Write(EnRecordKind kind, const char* pObject, const QString& strText)
{
    const qint64 nTime = QDateTime::currentMSecsSinceEpoch();
    const int nThread = GetThreadNumber();
    bool bAnnounce = false;
    {
        const QMutexLocker locker(&mutex);
        ++nLast;
        vecRecord[nLast % vecRecord.size()] = { nLast, nTime, nThread, kind, pObject, strText };
        bAnnounce = !bAnnounced;
        bAnnounced = true;
    }
    if (bAnnounce) {
        emit RecordsWaiting();
    }
    if (kind == RecordNote && pRecorder) {
        PassNote(pObject, strText);
    }
}

std::vector<SCallRecord> CCallLog::ReadAfter(quint64 nAfter)
{
    const QMutexLocker locker(&mutex);
    bAnnounced = false;
    const quint64 nKept = std::min<quint64>(nLast, vecRecord.size());
    std::vector<SCallRecord> vecResult;
    for (quint64 n = std::max(nAfter, nLast - nKept) + 1; n <= nLast; ++n) {
        vecResult.push_back(vecRecord[n % vecRecord.size()]);
    }
    return vecResult;
}

void CCallLog::SetRecorder(ICallRecorder* pRecorderIn)
{
    pRecorder = pRecorderIn;
}

ICallRecorder* CCallLog::GetRecorder() const
{
    return pRecorder;
}

quint64 CCallLog::GetLastNumber() const
{
    const QMutexLocker locker(&mutex);
    return nLast;
}

int CCallLog::GetThreadNumber() const
{
    const int nThread = NumberOfThisThread();
    return nThread == nFirstThread ? 0 : nThread;
}

void CCallLog::PassNote(const char* pObject, const QString& strText)
{
    SJournalRecord record;
    record.line = LineNote;
    record.szObject = pObject;
    record.vecField = { { "text", SPrivateText(strText, PrivateText) } };
    pRecorder->Write(std::move(record));
}
