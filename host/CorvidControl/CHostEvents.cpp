#include "CorvidControl/CHostEvents.h"

#include <QLoggingCategory>

namespace
{

Q_LOGGING_CATEGORY(logControl, "corvid.control", QtInfoMsg)

} // namespace

void CHostEvents::Refuse(const QString& strLine)
{
    qCInfo(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}

void CHostEvents::Warn(const QString& strLine)
{
    qCWarning(logControl, "%ls", qUtf16Printable(strLine));
    emit LogLine(strLine);
}
