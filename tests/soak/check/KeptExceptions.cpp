#include "check/KeptExceptions.h"

#include "check/CExpectedSelection.h"

bool KeptExceptions::IsComplaint(const QString& strComplaint)
{
    // The rows of the root are set one by one with setChild(), as the contract has it; the first one under a root without rows
    // makes QStandardItemModel announce a row that the tester does not find yet.
    return strComplaint.startsWith(QLatin1String("FAIL! ")) && strComplaint.contains(QLatin1String("rowsInserted"));
}

QString KeptExceptions::GetReasonToHitOthers(const CExpectedSelection& expected)
{
    if (expected.IsSuppressed()) {
        return QStringLiteral("F2 on a row without an editor keeps selections from going out until an editor has closed");
    }
    if (expected.GetSeen().isEmpty()) {
        return QStringLiteral("a selection that was emptied is not reported: the last one stays");
    }
    if (expected.GetStored().isEmpty()) {
        return QStringLiteral("an information row alone is reported as no node at all");
    }
    return {};
}
