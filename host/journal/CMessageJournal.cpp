#include "journal/CMessageJournal.h"

CMessageJournal::CMessageJournal(CCallLog& journal, const char* pObjectName, const MessageNamer& fnNameIn)
    : writer(journal, pObjectName), fnName(fnNameIn)
{ }

void CMessageJournal::Notify(int nMessage)
{
    writer.Message(nMessage, fnName(nMessage));
}
