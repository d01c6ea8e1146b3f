#include "journal/CConfigJournal.h"

CConfigJournal::CConfigJournal(IConfigControl& innerIn, CCallLog& journal) : inner(innerIn), writer(journal, "ConfigControl") { }

void CConfigJournal::GetReservedIPs(QList<uint>& listIP)
{
    inner.GetReservedIPs(listIP);
    writer.Read("GetReservedIPs", listIP.size());
}

QString CConfigJournal::GetListFilePath()
{
    const QString result = inner.GetListFilePath();
    writer.Read("GetListFilePath", result);
    return result;
}
