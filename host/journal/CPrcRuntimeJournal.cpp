#include "journal/CPrcRuntimeJournal.h"

#include "journal/recording/CRecordedCall.h"

CPrcRuntimeJournal::CPrcRuntimeJournal(IPrcRuntimeControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "PrcRuntimeControl")
{ }

void CPrcRuntimeJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CPrcRuntimeJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}
