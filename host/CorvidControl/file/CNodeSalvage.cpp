#include "CorvidControl/file/CNodeSalvage.h"

#include "CorvidControl/list/NameRules.h"

#include <QHostAddress>
#include <QJsonArray>

#include <cmath>
#include <limits>

namespace {

constexpr int nMaxFaults = 200;
constexpr qint64 nMaxInt = std::numeric_limits<qint32>::max();
constexpr qint64 nMinInt = std::numeric_limits<qint32>::min();
constexpr qint64 nMaxUnsigned = std::numeric_limits<quint32>::max();

quint32 ReadAddress(const QJsonObject& object)
{
    bool bGood = false;
    const quint32 nIP = QHostAddress(object.value(QStringLiteral("ip")).toString()).toIPv4Address(&bGood);
    return bGood ? nIP : 0;
}

bool IsWhole(const QJsonValue& value, qint64 nLeast, qint64 nMost)
{
    const double dValue = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    return std::trunc(dValue) == dValue && dValue >= static_cast<double>(nLeast) && dValue <= static_cast<double>(nMost);
}

} // namespace

std::optional<SProcessorNode> CNodeSalvage::ReadProcessor(const SJsonPart& part, const QString& strPlaceNow)
{
    SProcessorNode processor;
    processor.nIP = ReadAddress(part.object);
    if (processor.nIP == 0) {
        AddFault(strPlaceNow, QStringLiteral("it has no address"));
        return {};
    }
    Begin(part, strPlaceNow);
    processor.idNode = ReadId(QStringLiteral("id"), true);
    if (hashTaken.value(processor.idNode, 0) == processor.nIP) {
        AddFault(strPlaceNow, QStringLiteral("it is there twice"));
        return {};
    }
    processor.idNode = TakeId(processor.idNode);
    hashTaken.insert(processor.idNode, processor.nIP);
    processor.strName = ReadName(QHostAddress(processor.nIP).toString());
    processor.bExpanded = ReadBool(QStringLiteral("expanded"), false);
    processor.idAux = ReadId(QStringLiteral("aux"), false);
    processor.nModel = static_cast<qint32>(ReadNumber(QStringLiteral("model"), nMinInt, nMaxInt, processor.nModel));
    processor.strType = ReadText(QStringLiteral("type"));
    processor.nPortA = static_cast<quint32>(ReadNumber(QStringLiteral("portA"), 0, nMaxUnsigned, processor.nPortA));
    processor.nPortB = static_cast<quint32>(ReadNumber(QStringLiteral("portB"), 0, nMaxUnsigned, processor.nPortB));
    processor.bOnline = ReadBool(QStringLiteral("online"), false);
    processor.nFailover = static_cast<qint32>(ReadNumber(QStringLiteral("failover"), 0, 2, 0));
    processor.strProject = ReadText(QStringLiteral("project"));
    processor.nChief = static_cast<qint32>(ReadNumber(QStringLiteral("chief"), nMinInt, nMaxInt, 0));
    End();
    return processor;
}

SProcessorGroupNode CNodeSalvage::ReadGroup(const SJsonPart& part, const QString& strPlaceNow, const QString& strSubstitute)
{
    Begin(part, strPlaceNow);
    SProcessorGroupNode group;
    group.idNode = TakeId(ReadId(QStringLiteral("id"), true));
    hashTaken.insert(group.idNode, 0);
    group.strName = ReadName(strSubstitute);
    group.bExpanded = ReadBool(QStringLiteral("expanded"), true);
    group.idChief = ReadId(QStringLiteral("chief"), false);
    group.setAux = ReadNumbers(QStringLiteral("aux"));
    End();
    return group;
}

QString CNodeSalvage::ReadRootName(const SJsonPart& part, const QString& strSubstitute)
{
    Begin(part, QStringLiteral("the list"));
    return ReadName(strSubstitute);
}

void CNodeSalvage::AddFault(const QString& strPlaceNow, const QString& strReason)
{
    if (listFault.size() < nMaxFaults) {
        listFault.append(strPlaceNow + QStringLiteral(": ") + strReason);
    }
}

void CNodeSalvage::Begin(const SJsonPart& part, const QString& strPlaceNow)
{
    object = part.object;
    strPlace = strPlaceNow;
    bMended = false;
}

void CNodeSalvage::End()
{
    nMended += bMended ? 1 : 0;
}

void CNodeSalvage::Mend(const QString& strKey, const QString& strReason)
{
    bMended = true;
    AddFault(strPlace, QStringLiteral("\"%1\" %2").arg(strKey, strReason));
}

bool CNodeSalvage::ReadBool(const QString& strKey, bool bDefault)
{
    const QJsonValue value = object.value(strKey);
    if (!value.isBool()) {
        Mend(strKey, QStringLiteral("cannot be read"));
    }
    return value.toBool(bDefault);
}

qint64 CNodeSalvage::ReadNumber(const QString& strKey, qint64 nLeast, qint64 nMost, qint64 nDefault)
{
    const QJsonValue value = object.value(strKey);
    if (IsWhole(value, nLeast, nMost)) {
        return static_cast<qint64>(value.toDouble());
    }
    Mend(strKey, QStringLiteral("cannot be read, it is %1 now").arg(nDefault));
    return nDefault;
}

QString CNodeSalvage::ReadText(const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    const QString strText = NameRules::MendText(value.toString());
    if (!value.isString() || strText != value.toString()) {
        Mend(strKey, QStringLiteral("is \"%1\" now").arg(strText));
    }
    return strText;
}

QString CNodeSalvage::ReadName(const QString& strSubstitute)
{
    const QString strKey = QStringLiteral("name");
    const QJsonValue value = object.value(strKey);
    const QString strMended = NameRules::Mend(value.toString(), strSubstitute);
    const QString strName = NameRules::FindFault(strMended).isEmpty() ? strMended : strSubstitute;
    if (!value.isString() || strName != value.toString()) {
        Mend(strKey, QStringLiteral("is \"%1\" now").arg(strName));
    }
    return strName;
}

QUuid CNodeSalvage::ReadId(const QString& strKey, bool bNeeded)
{
    const QJsonValue value = object.value(strKey);
    const QUuid id(value.toString());
    const bool bNone = !bNeeded && value.isString() && value.toString().isEmpty();
    if (!bNone && id.isNull()) {
        Mend(strKey, bNeeded ? QStringLiteral("is no id, it has a new one") : QStringLiteral("is no id, there is none now"));
    }
    return id;
}

// One of its own for a node whose id is null or taken; the same each time that the same list is read.
QUuid CNodeSalvage::TakeId(const QUuid& id)
{
    static const QUuid idSpace(QStringLiteral("{7b0c6a52-6f0e-4c0f-9a53-2d8f5b1f9c31}"));
    if (!id.isNull() && !hashTaken.contains(id)) {
        return id;
    }
    if (!id.isNull()) {
        Mend(QStringLiteral("id"), QStringLiteral("is there twice, it has a new one"));
    }
    QUuid idNew = QUuid::createUuidV5(idSpace, strPlace);
    while (hashTaken.contains(idNew)) {
        idNew = QUuid::createUuidV5(idNew, strPlace);
    }
    return idNew;
}

QSet<int> CNodeSalvage::ReadNumbers(const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    const QJsonArray array = value.toArray();
    QSet<int> setNumber;
    for (int n = 0; n < array.size(); ++n) {
        if (IsWhole(array.at(n), nMinInt, nMaxInt) && setNumber.size() < limits.nAux) {
            setNumber.insert(static_cast<int>(array.at(n).toDouble()));
        }
    }
    if (!value.isArray() || setNumber.size() != array.size()) {
        Mend(strKey, QStringLiteral("holds %1 numbers now").arg(setNumber.size()));
    }
    return setNumber;
}
