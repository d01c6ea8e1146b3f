#include "CorvidControl/objects/CHostEvents.h"

#include "CorvidControl/list/CNameRules.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logControl, "corvid.control", QtInfoMsg)

} // namespace

void CHostEvents::Refuse(const QString& strText)
{
    const QString strLine = CNameRules::GetLine(strText);
    qCInfo(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}

void CHostEvents::Warn(const QString& strText)
{
    const QString strLine = CNameRules::GetLine(strText);
    qCWarning(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}
