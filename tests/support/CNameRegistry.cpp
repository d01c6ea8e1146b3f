#include "CNameRegistry.h"

#include <QMutexLocker>
#include <QStringList>

namespace {

QUuid NamedId(const QString& strKind, const QString& strName)
{
    static const QUuid idSpace(QStringLiteral("{5f0c8a57-7b0e-4a64-9d32-1f8b1d1e7a10}"));
    const QUuid id = QUuid::createUuidV5(idSpace, strKind + QLatin1Char(':') + strName);
    CNameRegistry::Instance().Name(id, strName);
    return id;
}

} // namespace

CNameRegistry& CNameRegistry::Instance()
{
    static CNameRegistry registry;
    return registry;
}

void CNameRegistry::Name(const QUuid& id, const QString& strName)
{
    const QMutexLocker locker(&mutex);
    hashName.insert(id, strName);
}

QString CNameRegistry::Text(const QUuid& id) const
{
    if (id.isNull()) {
        return QStringLiteral("{null}");
    }
    const QMutexLocker locker(&mutex);
    return hashName.value(id, id.toString());
}

QString CNameRegistry::Text(const std::vector<QUuid>& vecId) const
{
    QStringList listText;
    for (const QUuid& id : vecId) {
        listText.append(Text(id));
    }
    return QLatin1Char('[') + listText.join(QStringLiteral(", ")) + QLatin1Char(']');
}

QUuid ProcessorId(const QString& strName)
{
    return NamedId(QStringLiteral("processor"), strName);
}

QUuid GroupId(const QString& strName)
{
    return NamedId(QStringLiteral("group"), strName);
}
