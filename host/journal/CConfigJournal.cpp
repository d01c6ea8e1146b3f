#include "journal/CConfigJournal.h"

#include "journal/recording/CRecordedCall.h"

CConfigJournal::CConfigJournal(IConfigControl& innerIn, CCallLog& journal) : inner(innerIn), writer(journal, "ConfigControl") { }

void CConfigJournal::GetReservedIPs(QList<uint>& listIP)
{
    CRecordedCall call(writer, RecordRead, "GetReservedIPs");
    call.Fill(listIP, [&](auto& filled) { inner.GetReservedIPs(filled); });
    call.SetResult(SAddresses{ { listIP.begin(), listIP.end() } });
    writer.Read("GetReservedIPs", listIP.size());
}

QString CConfigJournal::GetListFilePath()
{
    CRecordedCall call(writer, RecordRead, "GetListFilePath");
    const QString result = call.Ask(QString(), [&] { return inner.GetListFilePath(); });
    call.SetResult(SPrivateText(result, PrivatePath));
    writer.Read("GetListFilePath", result);
    return result;
}
