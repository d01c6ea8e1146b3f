#include "journal/CMessageJournal.h"

CMessageJournal::CMessageJournal(CCallLog& journal, const char* pObjectName, MessageNamer pGetNameIn)
    : writer(journal, pObjectName), pGetName(pGetNameIn)
{ }

void CMessageJournal::Notify(int nMessage)
{
    writer.Message(nMessage, pGetName(nMessage));
}
