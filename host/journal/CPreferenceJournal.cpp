#include "journal/CPreferenceJournal.h"

#include "journal/recording/CRecordedCall.h"

CPreferenceJournal::CPreferenceJournal(IPreferenceControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "PreferenceControl")
{ }

void CPreferenceJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CPreferenceJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}

bool CPreferenceJournal::IsChiefMode()
{
    CRecordedCall call(writer, RecordRead, "IsChiefMode");
    const bool result = call.Ask(false, [&] { return inner.IsChiefMode(); });
    call.SetResult(result);
    writer.Read("IsChiefMode", result);
    return result;
}
