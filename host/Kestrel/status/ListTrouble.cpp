#include "Kestrel/status/ListTrouble.h"

#include <QString>

namespace {

// The library's own words, in English.
constexpr char szUnread[] = "The list was not read, it stays empty. ";
constexpr char szUnsaved[] = "The list is not being saved. ";

} // namespace

bool ListTrouble::IsUnread(const QString& strTrouble)
{
    return strTrouble.startsWith(QLatin1String(szUnread));
}

QString ListTrouble::GetReason(const QString& strTrouble)
{
    for (const QLatin1String strBegin : { QLatin1String(szUnread), QLatin1String(szUnsaved) }) {
        if (strTrouble.startsWith(strBegin)) {
            return strTrouble.mid(strBegin.size());
        }
    }
    return strTrouble;
}
