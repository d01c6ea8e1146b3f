#include "journal/recording/CRecordedCall.h"

#include "journal/recording/ICallRecorder.h"
#include "journal/recording/JournalThread.h"

#include <QDateTime>

#include <utility>

CRecordedCall::~CRecordedCall()
{
    if (!pRecorder) {
        return;
    }
    Stop();
    pRecorder->Write(std::move(record));
}

void CRecordedCall::Announce()
{
    if (!pRecorder) {
        return;
    }
    SJournalRecord begin = record;
    begin.line = LineBegin;
    pRecorder->Write(std::move(begin));
}

void CRecordedCall::Begin(EnRecordKind kind)
{
    record.bChange = kind == RecordCommand;
    record.szObject = writer.GetObjectName();
    record.szOperation = szOperation;
    record.thread = JournalThread::GetName();
    record.nDate = QDateTime::currentMSecsSinceEpoch();
    record.timeBegin = std::chrono::steady_clock::now();
    pRecorder->Begin(record);
}

void CRecordedCall::Stop()
{
    if (!bStopped) {
        bStopped = true;
        record.timeTaken = std::chrono::steady_clock::now() - record.timeBegin;
    }
}

void CRecordedCall::NoteThrown(const QString& strThrown)
{
    Stop();
    record.bThrew = true;
    writer.Threw(szOperation, strThrown);
}
