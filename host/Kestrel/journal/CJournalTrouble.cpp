#include "Kestrel/journal/CJournalTrouble.h"

#include "Kestrel/CKestrel.h"

void CJournalTrouble::Set(const QString& strReason)
{
    if (!strReason.isEmpty()) {
        CKestrel::Complain(QStringLiteral("The journal is not being written. %1").arg(strReason));
    }
    emit Changed(strReason);
}
