#include "journal/recording/CJournalRecorder.h"

#include "journal/recording/JournalThread.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

// Subscriptions and the busy state change nothing that a message could be about.
bool IsCause(const SJournalRecord& record)
{
    constexpr std::array<const char*, 3> listOther{ { "Attach", "Detach", "SetBusy" } };
    return record.bChange && std::none_of(listOther.begin(), listOther.end(), [&](const char* szOther) {
               return std::strcmp(record.szOperation, szOther) == 0;
           });
}

bool IsDeviceStep(const SJournalRecord& record)
{
    return record.line == LineNote && std::strcmp(record.szObject, "Devices") == 0;
}

int GetMessage(const SJournalRecord& record)
{
    return record.vecField.empty() ? 0 : static_cast<int>(std::get<qint64>(record.vecField.front().value));
}

} // namespace

CJournalRecorder::CJournalRecorder(CJournalWriter& writerIn) : writer(writerIn) { }

void CJournalRecorder::Begin(SJournalRecord& record)
{
    record.nNumber = ++nLast;
    if (IsCause(record)) {
        causes.Add(record.nNumber);
    }
}

void CJournalRecorder::Write(SJournalRecord&& record)
{
    if (record.line != LineCall && record.line != LineBegin) {
        Complete(record);
    }
    writer.Push(std::move(record));
}

void CJournalRecorder::Complete(SJournalRecord& record)
{
    record.nNumber = ++nLast;
    record.thread = JournalThread::GetName();
    record.nDate = QDateTime::currentMSecsSinceEpoch();
    record.timeBegin = std::chrono::steady_clock::now();
    if (record.line == LineMessage) {
        record.vecCause = causes.TakeFor(GetMessage(record));
    } else if (IsDeviceStep(record)) {
        causes.Add(record.nNumber);
    }
}
