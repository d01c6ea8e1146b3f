#include "journal/recording/CTreeReading.h"

#include "journal/recording/CJournalMask.h"
#include "journal/recording/NodeJson.h"

#include <QJsonArray>

#include <algorithm>

namespace {

QJsonObject GetDifferent(const QJsonObject& objectOld, const QJsonObject& objectNew)
{
    QJsonObject object;
    for (auto it = objectNew.begin(); it != objectNew.end(); ++it) {
        if (objectOld.value(it.key()) != it.value()) {
            object.insert(it.key(), it.value());
        }
    }
    return object;
}

void InsertUnlessEmpty(QJsonObject& object, const QString& strKey, const QJsonObject& value)
{
    if (!value.isEmpty()) {
        object.insert(strKey, value);
    }
}

} // namespace

QJsonObject CTreeReading::Take(const SProcessorAllNode& node, CJournalMask& mask)
{
    if (!bKnown) {
        bKnown = true;
        nodeLast = node;
        return { { QStringLiteral("whole"), NodeJson::GetWhole(node, mask) } };
    }
    const QJsonObject change = GetChange(nodeLast, node, mask);
    nodeLast = node;
    if (change.isEmpty()) {
        return { { QStringLiteral("same"), true } };
    }
    return { { QStringLiteral("change"), change } };
}

void CTreeReading::Forget()
{
    bKnown = false;
}

quint64 CTreeReading::GetComparisons() const
{
    return nComparisons;
}

template <typename Node>
QJsonObject CTreeReading::GetListChange(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask)
{
    if (listOld.isSharedWith(listNew)) {
        return {};
    }
    return listOld.size() == listNew.size() ? GetSet(listOld, listNew, mask) : GetSplice(listOld, listNew, mask);
}

template <typename Node>
QJsonObject CTreeReading::GetSet(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask)
{
    QJsonArray set;
    for (int n = 0; n < listNew.size(); ++n) {
        if (!IsSame(listOld.at(n), listNew.at(n))) {
            set.append(QJsonArray{ n, GetChange(listOld.at(n), listNew.at(n), mask) });
        }
    }
    return set.isEmpty() ? QJsonObject() : QJsonObject{ { QStringLiteral("set"), set } };
}

// What both ends have in common stays.
template <typename Node>
QJsonObject CTreeReading::GetSplice(const QList<Node>& listOld, const QList<Node>& listNew, CJournalMask& mask)
{
    const int nShorter = std::min(listOld.size(), listNew.size());
    int nHead = 0;
    while (nHead < nShorter && IsSame(listOld.at(nHead), listNew.at(nHead))) {
        ++nHead;
    }
    int nTail = 0;
    while (nTail < nShorter - nHead && IsSame(listOld.at(listOld.size() - 1 - nTail), listNew.at(listNew.size() - 1 - nTail))) {
        ++nTail;
    }
    QJsonArray inserted;
    for (int n = nHead; n < listNew.size() - nTail; ++n) {
        inserted.append(NodeJson::GetWhole(listNew.at(n), mask));
    }
    return { { QStringLiteral("at"), nHead },
             { QStringLiteral("remove"), listOld.size() - nHead - nTail },
             { QStringLiteral("insert"), inserted } };
}

template <typename Node> bool CTreeReading::IsSame(const Node& nodeOld, const Node& nodeNew)
{
    ++nComparisons;
    return nodeOld.nNodeType == nodeNew.nNodeType && IsSameRecord(nodeOld, nodeNew);
}

QJsonObject CTreeReading::GetChange(const SProcessorNode& nodeOld, const SProcessorNode& nodeNew, CJournalMask& mask)
{
    return GetDifferent(NodeJson::GetFields(nodeOld, mask), NodeJson::GetFields(nodeNew, mask));
}

QJsonObject CTreeReading::GetChange(const SProcessorGroupNode& nodeOld, const SProcessorGroupNode& nodeNew, CJournalMask& mask)
{
    QJsonObject object = GetDifferent(NodeJson::GetFields(nodeOld, mask), NodeJson::GetFields(nodeNew, mask));
    InsertUnlessEmpty(object, QStringLiteral("processors"), GetListChange(nodeOld.listProcessor, nodeNew.listProcessor, mask));
    return object;
}

QJsonObject CTreeReading::GetChange(const SProcessorAllNode& nodeOld, const SProcessorAllNode& nodeNew, CJournalMask& mask)
{
    QJsonObject object = GetDifferent(NodeJson::GetFields(nodeOld, mask), NodeJson::GetFields(nodeNew, mask));
    InsertUnlessEmpty(object, QStringLiteral("groups"), GetListChange(nodeOld.listGroup, nodeNew.listGroup, mask));
    InsertUnlessEmpty(object, QStringLiteral("processors"), GetListChange(nodeOld.listProcessor, nodeNew.listProcessor, mask));
    return object;
}

bool CTreeReading::IsSameRecord(const SProcessorNode& nodeOld, const SProcessorNode& nodeNew)
{
    return nodeOld == nodeNew;
}

bool CTreeReading::IsSameRecord(const SProcessorGroupNode& nodeOld, const SProcessorGroupNode& nodeNew)
{
    return nodeOld.strName == nodeNew.strName && nodeOld.bExpanded == nodeNew.bExpanded && nodeOld.idNode == nodeNew.idNode
        && nodeOld.idChief == nodeNew.idChief && nodeOld.setAux == nodeNew.setAux
        && IsSameList(nodeOld.listProcessor, nodeNew.listProcessor);
}

template <typename Node> bool CTreeReading::IsSameList(const QList<Node>& listOld, const QList<Node>& listNew)
{
    const auto fnIsSame = [this](const Node& nodeOld, const Node& nodeNew) { return IsSame(nodeOld, nodeNew); };
    return listOld.isSharedWith(listNew) || std::equal(listOld.begin(), listOld.end(), listNew.begin(), listNew.end(), fnIsSame);
}
