#include "CorvidControl/CListWriter.h"

#include "data/SProcessorAllNode.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>

namespace
{

template <typename List, typename Write> QJsonArray WriteList(const List& list, Write write)
{
    QJsonArray array;
    for (const auto& entry : list)
        array.append(write(entry));
    return array;
}

QString WriteId(const QUuid& id)
{
    return id.isNull() ? QString() : id.toString(QUuid::WithoutBraces);
}

QJsonArray WriteNumbers(const QSet<int>& setNumber)
{
    QList<int> listNumber = setNumber.values();
    std::sort(listNumber.begin(), listNumber.end());
    return WriteList(std::as_const(listNumber), [](int n) { return QJsonValue(n); });
}

} // namespace

QJsonObject CListWriter::WriteRoot(const SProcessorAllNode& node)
{
    return {
        { QStringLiteral("expanded"), node.bExpanded },
        { QStringLiteral("groups"), WriteList(node.listGroup, WriteGroup) },
        { QStringLiteral("name"), node.strName },
        { QStringLiteral("processors"), WriteList(node.listProcessor, WriteProcessor) },
    };
}

QJsonObject CListWriter::WriteGroup(const SProcessorGroupNode& group)
{
    return {
        { QStringLiteral("aux"), WriteNumbers(group.setAux) },
        { QStringLiteral("chief"), WriteId(group.idChief) },
        { QStringLiteral("expanded"), group.bExpanded },
        { QStringLiteral("id"), WriteId(group.idNode) },
        { QStringLiteral("name"), group.strName },
        { QStringLiteral("processors"), WriteList(group.listProcessor, WriteProcessor) },
    };
}

QJsonObject CListWriter::WriteProcessor(const SProcessorNode& processor)
{
    return {
        { QStringLiteral("aux"), WriteId(processor.idAux) },
        { QStringLiteral("chief"), processor.nChief },
        { QStringLiteral("expanded"), processor.bExpanded },
        { QStringLiteral("failover"), processor.nFailover },
        { QStringLiteral("id"), WriteId(processor.idNode) },
        { QStringLiteral("ip"), QHostAddress(processor.nIP).toString() },
        { QStringLiteral("model"), processor.nModel },
        { QStringLiteral("name"), processor.strName },
        { QStringLiteral("online"), processor.bOnline },
        { QStringLiteral("portA"), static_cast<qint64>(processor.nPortA) },
        { QStringLiteral("portB"), static_cast<qint64>(processor.nPortB) },
        { QStringLiteral("project"), processor.strProject },
        { QStringLiteral("type"), processor.strType },
    };
}
