#include "journal/recording/NodeJson.h"

#include "journal/recording/CJournalMask.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>

namespace {

QString GetId(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

template <typename Node> QJsonArray GetList(const QList<Node>& list, CJournalMask& mask)
{
    QJsonArray array;
    for (const Node& node : list) {
        array.append(NodeJson::GetWhole(node, mask));
    }
    return array;
}

template <typename Node> void ReadList(const QJsonValue& value, QList<Node>& list)
{
    if (!value.isArray()) {
        return;
    }
    list.clear();
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        Node node;
        NodeJson::Read(element.toObject(), node);
        list.append(node);
    }
}

void ReadBase(const QJsonObject& object, SNode& node)
{
    node.bExpanded = object.value(QStringLiteral("expanded")).toBool(node.bExpanded);
    node.strName = object.value(QStringLiteral("name")).toString(node.strName);
    node.nNodeType = object.value(QStringLiteral("type")).toInt(node.nNodeType);
}

QJsonObject GetBase(const SNode& node, const QString& strName)
{
    return { { QStringLiteral("expanded"), node.bExpanded },
             { QStringLiteral("name"), strName },
             { QStringLiteral("type"), node.nNodeType } };
}

void ReadId(const QJsonObject& object, const QString& strKey, QUuid& id)
{
    if (object.contains(strKey)) {
        id = QUuid(object.value(strKey).toString());
    }
}

void ReadNumber(const QJsonObject& object, const QString& strKey, quint32& nValue)
{
    nValue = static_cast<quint32>(object.value(strKey).toDouble(nValue));
}

} // namespace

QJsonObject NodeJson::GetFields(const SProcessorNode& node, CJournalMask& mask)
{
    QJsonObject object = GetBase(node, mask.GetName(node.strName));
    object.insert(QStringLiteral("id"), GetId(node.idNode));
    object.insert(QStringLiteral("aux"), GetId(node.idAux));
    object.insert(QStringLiteral("model"), node.nModel);
    object.insert(QStringLiteral("typeName"), node.strType);
    object.insert(QStringLiteral("ip"), QHostAddress(mask.GetAddress(node.nIP)).toString());
    object.insert(QStringLiteral("portA"), static_cast<double>(node.nPortA));
    object.insert(QStringLiteral("portB"), static_cast<double>(node.nPortB));
    object.insert(QStringLiteral("online"), node.bOnline);
    object.insert(QStringLiteral("failover"), node.nFailover);
    object.insert(QStringLiteral("project"), mask.GetName(node.strProject));
    object.insert(QStringLiteral("chief"), node.nChief);
    return object;
}

QJsonObject NodeJson::GetFields(const SProcessorGroupNode& node, CJournalMask& mask)
{
    QList<int> listAux = node.setAux.values();
    std::sort(listAux.begin(), listAux.end());
    QJsonArray aux;
    for (const int nAux : std::as_const(listAux)) {
        aux.append(nAux);
    }
    QJsonObject object = GetBase(node, mask.GetName(node.strName));
    object.insert(QStringLiteral("id"), GetId(node.idNode));
    object.insert(QStringLiteral("chiefId"), GetId(node.idChief));
    object.insert(QStringLiteral("aux"), aux);
    return object;
}

// The name of a root is a constant in our library; another may put the site's there.
QJsonObject NodeJson::GetFields(const SProcessorAllNode& node, CJournalMask& mask)
{
    return GetBase(node, mask.GetName(node.strName));
}

QJsonObject NodeJson::GetWhole(const SProcessorNode& node, CJournalMask& mask)
{
    return GetFields(node, mask);
}

QJsonObject NodeJson::GetWhole(const SProcessorGroupNode& node, CJournalMask& mask)
{
    QJsonObject object = GetFields(node, mask);
    object.insert(QStringLiteral("processors"), GetList(node.listProcessor, mask));
    return object;
}

QJsonObject NodeJson::GetWhole(const SProcessorAllNode& node, CJournalMask& mask)
{
    QJsonObject object = GetFields(node, mask);
    object.insert(QStringLiteral("groups"), GetList(node.listGroup, mask));
    object.insert(QStringLiteral("processors"), GetList(node.listProcessor, mask));
    return object;
}

void NodeJson::Read(const QJsonObject& object, SProcessorNode& node)
{
    ReadBase(object, node);
    ReadId(object, QStringLiteral("id"), node.idNode);
    ReadId(object, QStringLiteral("aux"), node.idAux);
    node.nModel = object.value(QStringLiteral("model")).toInt(node.nModel);
    node.strType = object.value(QStringLiteral("typeName")).toString(node.strType);
    if (object.contains(QStringLiteral("ip"))) {
        node.nIP = QHostAddress(object.value(QStringLiteral("ip")).toString()).toIPv4Address();
    }
    ReadNumber(object, QStringLiteral("portA"), node.nPortA);
    ReadNumber(object, QStringLiteral("portB"), node.nPortB);
    node.bOnline = object.value(QStringLiteral("online")).toBool(node.bOnline);
    node.nFailover = object.value(QStringLiteral("failover")).toInt(node.nFailover);
    node.strProject = object.value(QStringLiteral("project")).toString(node.strProject);
    node.nChief = object.value(QStringLiteral("chief")).toInt(node.nChief);
}

void NodeJson::Read(const QJsonObject& object, SProcessorGroupNode& node)
{
    ReadBase(object, node);
    ReadId(object, QStringLiteral("id"), node.idNode);
    ReadId(object, QStringLiteral("chiefId"), node.idChief);
    ReadList(object.value(QStringLiteral("processors")), node.listProcessor);
    if (!object.contains(QStringLiteral("aux"))) {
        return;
    }
    node.setAux.clear();
    const QJsonArray aux = object.value(QStringLiteral("aux")).toArray();
    for (const QJsonValue& value : aux) {
        node.setAux.insert(value.toInt());
    }
}

void NodeJson::Read(const QJsonObject& object, SProcessorAllNode& node)
{
    ReadBase(object, node);
    ReadList(object.value(QStringLiteral("groups")), node.listGroup);
    ReadList(object.value(QStringLiteral("processors")), node.listProcessor);
}
