#include "journal/CMessageJournal.h"

CMessageJournal::CMessageJournal(CCallJournal& journal, const char* pObjectName) : writer(journal, pObjectName) { }

void CMessageJournal::Notify(int nMessage)
{
    writer.Message(nMessage);
}
