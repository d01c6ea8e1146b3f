#include "CorvidControl/objects/CHostEvents.h"

#include "CorvidControl/list/JobNumber.h"
#include "CorvidControl/list/NameRules.h"
#include "CorvidControl/list/SFault.h"
#include "CorvidControl/list/SListCommand.h"

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

void CHostEvents::ReportRefusal(const SListCommand& command, const SFault& fault, const QString& strLine)
{
    emit CommandRefused({ command.command, NameRules::GetLine(command.strName), fault.reason, NameRules::GetLine(fault.strDetail),
                          NameRules::GetLine(strLine), JobNumber::Get() });
}
