#include "journal/replay/CReplayIds.h"

#include "journal/replay/CRecordedRun.h"
#include "journal/replay/ReplayValue.h"
#include "nodes/SProcessorAllNode.h"

#include <algorithm>

namespace {

QString GetText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

// Those of the panel alone can be made by a panel.
void CollectTree(const SProcessorAllNode& node, QSet<QString>& setId)
{
    for (const SProcessorGroupNode& group : node.listGroup) {
        setId.insert(GetText(group.idNode));
        for (const SProcessorNode& processor : group.listProcessor) {
            setId.insert(GetText(processor.idNode));
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        setId.insert(GetText(processor.idNode));
    }
}

// What tells a selection, or asks about one.
bool IsAboutSelection(const QString& strOperation)
{
    return strOperation == QLatin1String("SetSelectedNodes") || strOperation == QLatin1String("GetSelectedNodes")
        || strOperation == QLatin1String("IsDeleteBlocked") || strOperation == QLatin1String("IsNodeInUse");
}

} // namespace

CReplayIds::CReplayIds(const CRecordedRun& run) : bMasked(run.IsMasked())
{
    Collect(run);
}

// A new group may come back in a reading that began before the call that added it: that call alone says who made its id.
void CReplayIds::Collect(const CRecordedRun& run)
{
    QSet<QString> setArgument;
    const SProcessorAllNode* pLast = nullptr;
    for (const SRecordedLine& line : run.GetLines()) {
        const QJsonValue result = line.fields.value(QStringLiteral("result"));
        const QJsonValue args = line.fields.value(QStringLiteral("args"));
        const bool bSelection = IsAboutSelection(line.strOperation);
        if (line.pTree && line.pTree.data() != pLast) {
            pLast = line.pTree.data();
            CollectTree(*pLast, setAnswered);
        } else if (!line.pTree) {
            ReplayValue::ForEachId(result, [&](const QString& id) { (bSelection ? setSelected : setAnswered).insert(id); });
        }
        if (line.nNumber < run.GetStartNumber()) { // made by the recorded panel alone
            continue;
        }
        ReplayValue::ForEachId(args, [&](const QString& id) { (bSelection ? setSelected : setArgument).insert(id); });
        if (line.strOperation == QLatin1String("AddGroup")) {
            setMade.insert(args.toArray().at(0).toObject().value(QStringLiteral("id")).toString());
        }
    }
    setMade += (setArgument + setSelected) - setAnswered;
    setMade -= { QString(), GetText(QUuid()) };
}

bool CReplayIds::Match(const QJsonArray& argsMade, const QJsonArray& argsRecorded)
{
    QHash<QString, QString> mapNew;
    if (!IsSameArray(argsMade, argsRecorded, mapNew)) {
        return false;
    }
    for (auto it = mapNew.cbegin(); it != mapNew.cend(); ++it) {
        mapRecorded.insert(it.key(), it.value());
        mapPanel.insert(it.value(), it.key());
    }
    return true;
}

bool CReplayIds::WouldMatch(const QJsonArray& argsMade, const QJsonArray& argsRecorded) const
{
    QHash<QString, QString> mapNew;
    return IsSameArray(argsMade, argsRecorded, mapNew);
}

QJsonArray CReplayIds::GetRecorded(const QJsonArray& args) const
{
    QJsonArray result;
    for (const QJsonValue& value : args) {
        if (value.isArray()) {
            result.append(GetRecorded(value.toArray()));
            continue;
        }
        const auto it = value.isString() ? mapRecorded.constFind(value.toString()) : mapRecorded.constEnd();
        result.append(it == mapRecorded.constEnd() ? value : QJsonValue(*it));
    }
    return result;
}

QJsonValue CReplayIds::GetPanelValue(const QJsonValue& value) const
{
    if (value.isString()) {
        return GetPanelId(value.toString());
    }
    if (!value.isArray() || mapPanel.isEmpty()) {
        return value;
    }
    QJsonArray result;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        result.append(GetPanelValue(element));
    }
    return result;
}

// A panel makes the ids of groups alone.
void CReplayIds::Translate(SProcessorAllNode& node) const
{
    for (int n = 0; n < node.listGroup.size(); ++n) {
        const QString id = GetText(node.listGroup.at(n).idNode);
        if (mapPanel.contains(id)) {
            node.listGroup[n].idNode = QUuid(GetPanelId(id));
        }
    }
}

QString CReplayIds::GetPanelId(const QString& idRecorded) const
{
    return mapPanel.value(idRecorded, idRecorded);
}

bool CReplayIds::HasAny() const
{
    return !mapPanel.isEmpty();
}

bool CReplayIds::WasSelected(const QString& idPanel) const
{
    return setSelected.contains(mapRecorded.value(idPanel, idPanel));
}

void CReplayIds::SetPath(const QString& strOwn, const QString& strRecorded)
{
    strOwnPath = strOwn;
    strRecordedPath = strRecorded;
}

bool CReplayIds::IsSame(const QJsonValue& made, const QJsonValue& recorded, QHash<QString, QString>& mapNew) const
{
    if (made.type() != recorded.type()) {
        return false;
    }
    if (made.isString()) {
        return IsSameText(made.toString(), recorded.toString(), mapNew);
    }
    if (made.isObject()) {
        return IsSameObject(made.toObject(), recorded.toObject(), mapNew);
    }
    return made.isArray() ? IsSameArray(made.toArray(), recorded.toArray(), mapNew) : made == recorded;
}

bool CReplayIds::IsSameText(const QString& strMade, const QString& strRecorded, QHash<QString, QString>& mapNew) const
{
    if (!ReplayValue::IsId(strRecorded) || !ReplayValue::IsId(strMade)) {
        const bool bOwnPath = !strOwnPath.isEmpty() && strMade == strOwnPath;
        return bMasked || strMade == strRecorded || (bOwnPath && strRecorded == strRecordedPath);
    }
    const auto it = mapNew.constFind(strMade);
    const QString strKnown = it != mapNew.constEnd() ? *it : mapRecorded.value(strMade);
    if (!strKnown.isEmpty()) {
        return strKnown == strRecorded;
    }
    if (strMade == strRecorded) {
        return true;
    }
    const bool bBound = mapPanel.contains(strRecorded) || mapNew.key(strRecorded) != QString();
    if (!setMade.contains(strRecorded) || bBound || setAnswered.contains(strMade)) {
        return false;
    }
    mapNew.insert(strMade, strRecorded);
    return true;
}

bool CReplayIds::IsSameObject(const QJsonObject& made, const QJsonObject& recorded, QHash<QString, QString>& mapNew) const
{
    const QStringList listKey = made.keys();
    return listKey == recorded.keys() && std::all_of(listKey.begin(), listKey.end(), [&](const QString& strKey) {
               return IsSame(made.value(strKey), recorded.value(strKey), mapNew);
           });
}

bool CReplayIds::IsSameArray(const QJsonArray& made, const QJsonArray& recorded, QHash<QString, QString>& mapNew) const
{
    return std::equal(made.begin(), made.end(), recorded.begin(), recorded.end(),
                      [&](const QJsonValue& one, const QJsonValue& other) { return IsSame(one, other, mapNew); });
}
