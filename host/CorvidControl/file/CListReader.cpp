#include "CorvidControl/file/CListReader.h"

#include "CorvidControl/list/NameRules.h"

#include <QHostAddress>
#include <QJsonArray>

#include <cmath>
#include <limits>

namespace {

constexpr qint64 nMaxInt = std::numeric_limits<qint32>::max();
constexpr qint64 nMinInt = std::numeric_limits<qint32>::min();
constexpr qint64 nMaxUnsigned = std::numeric_limits<quint32>::max();

} // namespace

CListReader::CListReader(const SListLimits& limitsIn, bool bMendIn) : limits(limitsIn), bMend(bMendIn) { }

SProcessorAllNode CListReader::ReadRoot(const QJsonObject& object)
{
    SProcessorAllNode node;
    strPlace = QStringLiteral("the list");
    CheckKeys(object,
              { QStringLiteral("expanded"), QStringLiteral("groups"), QStringLiteral("name"), QStringLiteral("processors") });
    node.bExpanded = ReadBool(object, QStringLiteral("expanded"));
    node.strName = ReadName(object, node.strName);
    const QJsonArray arrayGroup = ReadArray(object, QStringLiteral("groups"));
    CheckCount(arrayGroup.size(), limits.nGroups, QStringLiteral("groups"));
    for (int n = 0; n < arrayGroup.size() && strFault.isEmpty(); ++n) {
        strPlace = QStringLiteral("group %1").arg(n + 1);
        node.listGroup.append(ReadGroup(CheckObject(arrayGroup.at(n)), n + 1));
    }
    strPlace = QStringLiteral("the root");
    node.listProcessor = ReadProcessors(object);
    return node;
}

SProcessorGroupNode CListReader::ReadGroup(const QJsonObject& object, int nGroup)
{
    SProcessorGroupNode group;
    CheckKeys(object,
              { QStringLiteral("aux"), QStringLiteral("chief"), QStringLiteral("expanded"), QStringLiteral("id"),
                QStringLiteral("name"), QStringLiteral("processors") });
    group.setAux = ReadNumbers(object, QStringLiteral("aux"));
    group.idChief = ReadId(object, QStringLiteral("chief"));
    group.bExpanded = ReadBool(object, QStringLiteral("expanded"));
    group.idNode = ReadNodeId(object);
    group.strName = ReadName(object, QStringLiteral("Group %1").arg(nGroup));
    group.listProcessor = ReadProcessors(object);
    return group;
}

SProcessorNode CListReader::ReadProcessor(const QJsonObject& object)
{
    SProcessorNode processor;
    CheckKeys(object,
              { QStringLiteral("aux"), QStringLiteral("chief"), QStringLiteral("expanded"), QStringLiteral("failover"),
                QStringLiteral("id"), QStringLiteral("ip"), QStringLiteral("model"), QStringLiteral("name"),
                QStringLiteral("online"), QStringLiteral("portA"), QStringLiteral("portB"), QStringLiteral("project"),
                QStringLiteral("type") });
    processor.idAux = ReadId(object, QStringLiteral("aux"));
    processor.nChief = static_cast<qint32>(ReadNumber(object, QStringLiteral("chief"), nMinInt, nMaxInt));
    processor.bExpanded = ReadBool(object, QStringLiteral("expanded"));
    processor.nFailover = static_cast<qint32>(ReadNumber(object, QStringLiteral("failover"), 0, 2));
    processor.idNode = ReadNodeId(object);
    processor.nIP = ReadAddress(object);
    processor.nModel = static_cast<qint32>(ReadNumber(object, QStringLiteral("model"), nMinInt, nMaxInt));
    processor.strName = ReadName(object, QHostAddress(processor.nIP).toString());
    processor.bOnline = ReadBool(object, QStringLiteral("online"));
    processor.nPortA = static_cast<quint32>(ReadNumber(object, QStringLiteral("portA"), 0, nMaxUnsigned));
    processor.nPortB = static_cast<quint32>(ReadNumber(object, QStringLiteral("portB"), 0, nMaxUnsigned));
    processor.strProject = ReadText(object, QStringLiteral("project"));
    processor.strType = ReadText(object, QStringLiteral("type"));
    return processor;
}

QList<SProcessorNode> CListReader::ReadProcessors(const QJsonObject& object)
{
    QList<SProcessorNode> listProcessor;
    const QString strParent = strPlace;
    const QJsonArray array = ReadArray(object, QStringLiteral("processors"));
    nProcessors += array.size();
    CheckCount(nProcessors, limits.nProcessors, QStringLiteral("processors"));
    for (int n = 0; n < array.size() && strFault.isEmpty(); ++n) {
        strPlace = QStringLiteral("processor %1 of %2").arg(n + 1).arg(strParent);
        listProcessor.append(ReadProcessor(CheckObject(array.at(n))));
    }
    return listProcessor;
}

// Before anything of it is read.
void CListReader::CheckCount(int nCount, int nMost, const QString& strWhat)
{
    if (nCount > nMost && strFault.isEmpty()) {
        bTooLarge = true;
        strFault = QStringLiteral("it holds more than %1 %2").arg(nMost).arg(strWhat);
    }
}

void CListReader::CheckKeys(const QJsonObject& object, const QStringList& listKey)
{
    // Both are in order: QJsonObject sorts its keys.
    if (object.keys() != listKey) {
        Fail(QStringLiteral("its keys are not those of version 1"));
    }
    nKeys += listKey.size();
}

bool CListReader::ReadBool(const QJsonObject& object, const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    if (!value.isBool()) {
        Fail(QStringLiteral("\"%1\" is neither true nor false").arg(strKey));
    }
    return value.toBool();
}

qint64 CListReader::ReadNumber(const QJsonObject& object, const QString& strKey, qint64 nLeast, qint64 nMost)
{
    return CheckNumber(object.value(strKey), strKey, nLeast, nMost);
}

qint64 CListReader::CheckNumber(const QJsonValue& value, const QString& strKey, qint64 nLeast, qint64 nMost)
{
    const double dValue = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    const bool bGood
        = std::trunc(dValue) == dValue && dValue >= static_cast<double>(nLeast) && dValue <= static_cast<double>(nMost);
    if (!bGood) {
        Fail(QStringLiteral("\"%1\" is no whole number of %2 to %3").arg(strKey).arg(nLeast).arg(nMost));
    }
    return bGood ? static_cast<qint64>(dValue) : 0;
}

QString CListReader::ReadText(const QJsonObject& object, const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    const QString strText = value.toString();
    if (!value.isString() || !NameRules::IsText(strText)) {
        Fail(QStringLiteral("\"%1\" is no text of at most %2 bytes").arg(strKey).arg(NameRules::nMaxTextBytes));
    }
    return strText;
}

QString CListReader::ReadName(const QJsonObject& object, const QString& strSubstitute)
{
    const QJsonValue value = object.value(QStringLiteral("name"));
    QString strName = value.toString();
    if (bMend && value.isString() && NameRules::Mend(strName, strSubstitute) != strName) {
        strName = NameRules::Mend(strName, strSubstitute);
        listMended.append(QStringLiteral("A name in the list was mended. %1: it is \"%2\" now").arg(strPlace, strName));
    }
    const QString strNameFault = NameRules::FindFault(strName);
    if (!strNameFault.isEmpty()) {
        Fail(strNameFault);
    }
    return strName;
}

QUuid CListReader::ReadId(const QJsonObject& object, const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    const QUuid id(value.toString());
    const bool bNone = value.isString() && value.toString().isEmpty();
    if (!bNone && (id.isNull() || id.toString(QUuid::WithoutBraces) != value.toString())) {
        Fail(QStringLiteral("\"%1\" is no id").arg(strKey));
    }
    return id;
}

QUuid CListReader::ReadNodeId(const QJsonObject& object)
{
    const QUuid id = ReadId(object, QStringLiteral("id"));
    if (id.isNull()) {
        Fail(QStringLiteral("it has no id"));
    } else if (setId.contains(id)) {
        Fail(QStringLiteral("the id %1 is there twice").arg(id.toString(QUuid::WithoutBraces)));
    }
    setId.insert(id);
    return id;
}

quint32 CListReader::ReadAddress(const QJsonObject& object)
{
    const QString strText = object.value(QStringLiteral("ip")).toString();
    bool bGood = false;
    const quint32 nIP = QHostAddress(strText).toIPv4Address(&bGood);
    if (!bGood || QHostAddress(nIP).toString() != strText) {
        Fail(QStringLiteral("\"ip\" is no IPv4 address"));
    }
    return nIP;
}

QSet<int> CListReader::ReadNumbers(const QJsonObject& object, const QString& strKey)
{
    QSet<int> setNumber;
    const QJsonArray array = ReadArray(object, strKey);
    if (array.size() > limits.nAux) {
        Fail(QStringLiteral("\"%1\" holds more than %2 numbers").arg(strKey).arg(limits.nAux));
        return setNumber;
    }
    for (int n = 0; n < array.size(); ++n) {
        setNumber.insert(static_cast<int>(CheckNumber(array.at(n), strKey, nMinInt, nMaxInt)));
    }
    if (setNumber.size() != array.size()) {
        Fail(QStringLiteral("\"%1\" holds a number twice").arg(strKey));
    }
    return setNumber;
}

QJsonArray CListReader::ReadArray(const QJsonObject& object, const QString& strKey)
{
    const QJsonValue value = object.value(strKey);
    if (!value.isArray()) {
        Fail(QStringLiteral("\"%1\" is no list").arg(strKey));
    }
    return value.toArray();
}

QJsonObject CListReader::CheckObject(const QJsonValue& value)
{
    if (!value.isObject()) {
        Fail(QStringLiteral("it is no object"));
    }
    return value.toObject();
}

void CListReader::Fail(const QString& strReason)
{
    if (strFault.isEmpty()) {
        strFault = strPlace + QStringLiteral(": ") + strReason;
    }
}
