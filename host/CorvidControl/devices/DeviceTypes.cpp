#include "CorvidControl/devices/DeviceTypes.h"

#include <QMap>

namespace {

// Short: a panel of 200 pixels leaves a type in a group 90 of them.
const QMap<qint32, QString>& GetNames()
{
    static const QMap<qint32, QString> mapName{
        { DeviceTypes::nStandard, QStringLiteral("C12") },
        { 22, QStringLiteral("C22 Compact") },
        { 30, QStringLiteral("C30 Rack") },
        { 41, QStringLiteral("C41 Portable") },
    };
    return mapName;
}

} // namespace

bool DeviceTypes::IsKnown(qint32 nType)
{
    return GetNames().contains(nType);
}

QString DeviceTypes::GetName(qint32 nType)
{
    return GetNames().value(nType, QStringLiteral("Type %1").arg(nType));
}
