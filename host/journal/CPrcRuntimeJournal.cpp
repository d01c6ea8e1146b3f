#include "journal/CPrcRuntimeJournal.h"

CPrcRuntimeJournal::CPrcRuntimeJournal(IPrcRuntimeControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "PrcRuntimeControl")
{ }

void CPrcRuntimeJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CPrcRuntimeJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}
