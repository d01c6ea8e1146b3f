#include "journal/CProtocalJournal.h"

CProtocalJournal::CProtocalJournal(IProtocalControl& control, CCallLog& journal)
    : inner(control), writer(journal, "ProtocalControl")
{ }

void CProtocalJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CProtocalJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}
