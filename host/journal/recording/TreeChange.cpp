#include "journal/recording/TreeChange.h"

#include "journal/recording/NodeJson.h"
#include "nodes/SProcessorAllNode.h"

#include <QJsonArray>

namespace {

template <typename Node> Node ReadNode(const QJsonValue& value, Node node)
{
    NodeJson::Read(value.toObject(), node);
    return node;
}

template <typename Node> void ApplyToList(const QJsonObject& object, QList<Node>& list);

void ApplyToNode(const QJsonObject& object, SProcessorNode& node)
{
    NodeJson::Read(object, node);
}

void ApplyToNode(const QJsonObject& object, SProcessorGroupNode& node)
{
    NodeJson::Read(object, node);
    ApplyToList(object.value(QStringLiteral("processors")).toObject(), node.listProcessor);
}

template <typename Node> void ApplyToList(const QJsonObject& object, QList<Node>& list)
{
    const QJsonArray set = object.value(QStringLiteral("set")).toArray();
    for (const QJsonValue& value : set) {
        const int nAt = value.toArray().at(0).toInt(-1);
        if (nAt >= 0 && nAt < list.size()) {
            ApplyToNode(value.toArray().at(1).toObject(), list[nAt]);
        }
    }
    const int nAt = object.value(QStringLiteral("at")).toInt();
    const int nRemove = object.value(QStringLiteral("remove")).toInt();
    list.erase(list.begin() + qBound(0, nAt, list.size()), list.begin() + qBound(0, nAt + nRemove, list.size()));
    const QJsonArray inserted = object.value(QStringLiteral("insert")).toArray();
    for (int n = 0; n < inserted.size(); ++n) {
        list.insert(qBound(0, nAt + n, list.size()), ReadNode(inserted.at(n), Node()));
    }
}

} // namespace

void TreeChange::Apply(const QJsonObject& object, SProcessorAllNode& node)
{
    if (object.contains(QStringLiteral("whole"))) {
        node = ReadNode(object.value(QStringLiteral("whole")), SProcessorAllNode());
        return;
    }
    const QJsonObject change = object.value(QStringLiteral("change")).toObject();
    NodeJson::Read(change, node);
    ApplyToList(change.value(QStringLiteral("groups")).toObject(), node.listGroup);
    ApplyToList(change.value(QStringLiteral("processors")).toObject(), node.listProcessor);
}
