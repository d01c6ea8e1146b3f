#include "CorvidControl/CHostEvents.h"

#include <QLoggingCategory>

namespace
{

Q_LOGGING_CATEGORY(logControl, "corvid.control", QtInfoMsg)

} // namespace

void CHostEvents::Refuse(const QString& strLine)
{
    qCInfo(logControl).noquote() << strLine;
    emit LogLine(strLine);
}

void CHostEvents::Warn(const QString& strLine)
{
    qCWarning(logControl).noquote() << strLine;
    emit LogLine(strLine);
}
