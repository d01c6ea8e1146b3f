#include "CorvidControl/devices/DeviceTypes.h"

#include <QMap>

namespace {

const QMap<qint32, QString>& GetNames()
{
    static const QMap<qint32, QString> mapName{
        { DeviceTypes::nStandard, QStringLiteral("Corvid C12") },
        { 22, QStringLiteral("Corvid C22 Compact") },
        { 30, QStringLiteral("Corvid C30 Rack") },
        { 41, QStringLiteral("Corvid C41 Portable") },
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
