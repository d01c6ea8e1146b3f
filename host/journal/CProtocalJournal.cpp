#include "journal/CProtocalJournal.h"

CProtocalJournal::CProtocalJournal(IProtocalControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "ProtocalControl")
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
