#include "journal/CMessageJournal.h"

CMessageJournal::CMessageJournal(CCallLog& journal, const char* pObjectName, MessageNamer pNamer)
    : writer(journal, pObjectName), pGetName(pNamer)
{ }

void CMessageJournal::Notify(int nMessage)
{
    writer.Message(nMessage, pGetName(nMessage));
}
