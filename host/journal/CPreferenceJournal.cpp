#include "journal/CPreferenceJournal.h"

CPreferenceJournal::CPreferenceJournal(IPreferenceControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "PreferenceControl")
{ }

void CPreferenceJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CPreferenceJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}

bool CPreferenceJournal::IsChiefMode()
{
    const bool result = inner.IsChiefMode();
    writer.Read("IsChiefMode", result);
    return result;
}
