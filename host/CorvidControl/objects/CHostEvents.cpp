#include "CorvidControl/objects/CHostEvents.h"

#include "CorvidControl/list/NameRules.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logControl, "corvid.control", QtInfoMsg)

} // namespace

void CHostEvents::Refuse(const QString& strText)
{
    const QString strLine = NameRules::GetLine(strText);
    qCInfo(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}

void CHostEvents::Warn(const QString& strText)
{
    const QString strLine = NameRules::GetLine(strText);
    qCWarning(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}
