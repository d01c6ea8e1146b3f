#include "journal/recording/CJournalWriter.h"

#include <utility>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// A message and all that comes of it, to the pixels, takes less: the thread works behind it and not beside it.
constexpr std::chrono::milliseconds timeLinger{ 20 };
constexpr int nLooks = 50;         ///< for so many times nothing came: it sleeps until it is woken
constexpr std::size_t nRoom = 256; ///< records that the queue takes without a copy of all
constexpr int nNice = 10;          ///< on a machine that is busy the panel goes first

// Of the calling thread alone, as Linux has it.
void StepBack()
{
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), nNice);
}

// A limit on the size of files is an error of the line that passes it, and not the end of the program. Whoever waits for
// this thread before the end by SIGQUIT does so on another.
void BlockSignals()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGXFSZ);
    sigaddset(&blocked, SIGQUIT);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
}

} // namespace

CJournalWriter::CJournalWriter(const SRecordingLimits& limitsIn) : limits(limitsIn) { }

CJournalWriter::~CJournalWriter()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        bEnd = true;
        condWork.notify_one();
    }
    if (thread.joinable()) {
        thread.join();
    }
}

void CJournalWriter::SetTrouble(const std::function<void(const QString&)>& fnTroubleIn)
{
    Q_ASSERT(!thread.joinable());
    fnTrouble = fnTroubleIn;
}

void CJournalWriter::Open(const QString& strFolder, const std::vector<SJournalField>& vecHeaderIn, bool bMask)
{
    Q_ASSERT(!thread.joinable());
    vecHeader = vecHeaderIn;
    pFormat = std::make_unique<CJournalFormat>(bMask, timeStart);
    pRing = std::make_unique<CJournalRing>(strFolder, limits);
    thread = std::thread([this] { Run(); });
}

void CJournalWriter::Push(SJournalRecord&& record)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const bool bRead = record.line == LineCall && !record.bChange;
    if (vecQueue.size() >= (bRead ? limits.nQueued - limits.nQueued / 4 : limits.nQueued)) {
        ++(bRead ? lost.nReads : lost.nOthers);
        ++nLost;
        return;
    }
    vecQueue.push_back(std::move(record));
    ++nQueued;
    if (bSleeping) {
        bSleeping = false;
        condWork.notify_one();
    }
}

bool CJournalWriter::Flush(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    const quint64 nLast = nQueued;
    nFlushTo = nLast;
    condWork.notify_one();
    return condDone.wait_until(lock, std::chrono::steady_clock::now() + time, [&] { return nDone >= nLast; });
}

bool CJournalWriter::IsWritten() const noexcept
{
    return nDone >= nQueued;
}

bool CJournalWriter::IsWritingThread() const noexcept
{
    return nThread == gettid();
}

quint64 CJournalWriter::GetLost() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nLost;
}

QString CJournalWriter::GetError() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return strError;
}

void CJournalWriter::Run()
{
    nThread = gettid();
    StepBack();
    BlockSignals();
    while (true) {
        const std::vector<SJournalRecord> vecBatch = Await();
        if (vecBatch.empty()) {
            break;
        }
        WriteBatch(vecBatch);
    }
    if (PrepareFile() && WriteLost()) {
        pRing->Write(pFormat->GetLine("end", {}));
    }
}

// Empty at the end alone.
std::vector<SJournalRecord> CJournalWriter::Await()
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto isUrgent = [this] { return bEnd || nFlushTo > nDone; };
    bool bUrgent = isUrgent();
    for (int nLook = 0; !bUrgent && (nLook == 0 || vecQueue.empty()) && nLook < nLooks; ++nLook) {
        bUrgent = condWork.wait_until(lock, std::chrono::steady_clock::now() + timeLinger, isUrgent);
    }
    if (!bUrgent && vecQueue.empty()) {
        bSleeping = true;
        condWork.wait(lock, [&] { return !vecQueue.empty() || isUrgent(); });
        bSleeping = false;
        condWork.wait_until(lock, std::chrono::steady_clock::now() + timeLinger, isUrgent);
    }
    std::vector<SJournalRecord> vecNext;
    vecNext.reserve(nRoom);
    return std::exchange(vecQueue, std::move(vecNext));
}

void CJournalWriter::WriteBatch(const std::vector<SJournalRecord>& vecBatch)
{
    for (const SJournalRecord& record : vecBatch) {
        WriteRecord(record);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    nDone += vecBatch.size();
    condDone.notify_all();
}

void CJournalWriter::WriteRecord(const SJournalRecord& record)
{
    if (record.bState) {
        vecState = record.vecField;
    }
    if (!PrepareFile() || !WriteLost()) {
        NoteRefusal();
        return;
    }
    if (!pRing->Write(pFormat->GetLine(record))) {
        pFormat->ForgetTrees(); // a difference to a line that is not there says nothing
        NoteRefusal();
    }
}

bool CJournalWriter::PrepareFile()
{
    if (!pRing->NeedsFile()) {
        return true;
    }
    pFormat->ForgetTrees();
    if (!pRing->Begin(GetHeader())) {
        return false;
    }
    ++nFile;
    return true;
}

QByteArray CJournalWriter::GetHeader()
{
    QJsonObject object = pFormat->GetObject(vecHeader);
    object.insert(QStringLiteral("masked"), pFormat->GetMask().IsOn());
    object.insert(QStringLiteral("file"), nFile + 1);
    if (!vecState.empty()) {
        object.insert(QStringLiteral("screen"), pFormat->GetObject(vecState));
    }
    return pFormat->GetLine("header", object);
}

bool CJournalWriter::WriteLost()
{
    SLost lostNow;
    QString strReason;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        lostNow = lost;
        strReason = strError;
    }
    const quint64 nCount = lostNow.nReads + lostNow.nOthers + lostNow.nRefused;
    if (nCount == 0) {
        return true;
    }
    const QJsonObject object{ { QStringLiteral("count"), static_cast<double>(nCount) },
                              { QStringLiteral("reads"), static_cast<double>(lostNow.nReads) },
                              { QStringLiteral("others"), static_cast<double>(lostNow.nOthers) },
                              { QStringLiteral("refused"), static_cast<double>(lostNow.nRefused) },
                              { QStringLiteral("reason"), pFormat->GetMask().GetText(SPrivateText(strReason, PrivateText)) } };
    if (!pRing->Write(pFormat->GetLine("lost", object))) {
        return false;
    }
    {
        const std::lock_guard<std::mutex> lock(mutex);
        lost.nReads -= lostNow.nReads;
        lost.nOthers -= lostNow.nOthers;
        lost.nRefused -= lostNow.nRefused;
        strError.clear();
    }
    if (!strReason.isEmpty()) {
        fnTrouble(QString());
    }
    return true;
}

void CJournalWriter::NoteRefusal()
{
    bool bFirst = false;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ++lost.nRefused;
        ++nLost;
        bFirst = strError.isEmpty();
        strError = pRing->GetError();
    }
    if (bFirst) {
        fnTrouble(pRing->GetError());
    }
}
