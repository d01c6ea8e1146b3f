#include "journal/CPrcRuntimeJournal.h"

CPrcRuntimeJournal::CPrcRuntimeJournal(IPrcRuntimeControl& control, CCallLog& journal)
    : inner(control), writer(journal, "PrcRuntimeControl")
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
