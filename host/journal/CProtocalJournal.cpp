#include "journal/CProtocalJournal.h"

#include "journal/recording/CRecordedCall.h"

CProtocalJournal::CProtocalJournal(IProtocalControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "ProtocalControl")
{ }

void CProtocalJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CProtocalJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}
