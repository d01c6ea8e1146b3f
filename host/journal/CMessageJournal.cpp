#include "journal/CMessageJournal.h"

#include "journal/recording/ICallRecorder.h"
#include "journal/recording/SJournalRecord.h"

#include <utility>

CMessageJournal::CMessageJournal(CCallLog& journal, const char* pObjectName, const MessageNamer& fnNameIn)
    : writer(journal, pObjectName), fnName(fnNameIn)
{ }

void CMessageJournal::Notify(int nMessage)
{
    const QString strName = fnName(nMessage);
    writer.Message(nMessage, strName);
    if (ICallRecorder* pRecorder = writer.GetRecorder()) {
        SJournalRecord record;
        record.line = LineMessage;
        record.szObject = writer.GetObjectName();
        record.vecField = { { "message", qint64(nMessage) }, { "name", strName } };
        pRecorder->Write(std::move(record));
    }
}

void CMessageJournal::NoteThrown(const char* szOperation, const QString& strThrown) const
{
    if (!strThrown.isNull()) {
        writer.Threw(szOperation, strThrown);
    }
}
