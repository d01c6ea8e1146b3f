#include "CorvidControl/list/CNodeTree.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

int FindIn(const QList<SProcessorNode>& listProcessor, const QUuid& id)
{
    for (int nIndex = 0; nIndex < listProcessor.size(); ++nIndex) {
        if (listProcessor.at(nIndex).idNode == id) {
            return nIndex;
        }
    }
    return -1;
}

QUuid FindNameIn(const QList<SProcessorNode>& listProcessor, const QString& strName)
{
    for (const SProcessorNode& processor : listProcessor) {
        if (processor.strName == strName) {
            return processor.idNode;
        }
    }
    return {};
}

QList<SProcessorNode> BuildCopy(const QList<SProcessorNode>& listProcessor)
{
    QList<SProcessorNode> listCopy;
    listCopy.reserve(listProcessor.size());
    for (const SProcessorNode& processor : listProcessor) {
        listCopy.append(processor);
    }
    return listCopy;
}

// 0 for a name without a number.
int ReadGroupNumber(const QString& strName)
{
    static const QRegularExpression expression(QStringLiteral("^\\S+ ([1-9][0-9]{0,8})$"));
    return expression.match(strName).captured(1).toInt();
}

} // namespace

void CNodeTree::Unshare()
{
    QList<SProcessorGroupNode> listGroup;
    for (const SProcessorGroupNode& groupOld : std::as_const(node.listGroup)) {
        SProcessorGroupNode group = groupOld;
        group.listProcessor = BuildCopy(groupOld.listProcessor);
        listGroup.append(group);
    }
    node.listGroup = listGroup;
    node.listProcessor = BuildCopy(node.listProcessor);
}

int CNodeTree::GetProcessorCount() const
{
    int nCount = node.listProcessor.size();
    for (const SProcessorGroupNode& group : node.listGroup) {
        nCount += group.listProcessor.size();
    }
    return nCount;
}

QList<SProcessorNode> CNodeTree::GetProcessors() const
{
    QList<SProcessorNode> listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listProcessor += group.listProcessor;
    }
    return listProcessor + node.listProcessor;
}

QList<QUuid> CNodeTree::GetIds() const
{
    QList<QUuid> listId;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listId.append(group.idNode);
    }
    const QList<SProcessorNode> listProcessor = GetProcessors();
    for (const SProcessorNode& processor : listProcessor) {
        listId.append(processor.idNode);
    }
    return listId;
}

int CNodeTree::FindGroup(const QUuid& id) const
{
    for (int nGroup = 0; nGroup < node.listGroup.size(); ++nGroup) {
        if (node.listGroup.at(nGroup).idNode == id) {
            return nGroup;
        }
    }
    return -1;
}

std::optional<SNodePlace> CNodeTree::FindProcessor(const QUuid& id) const
{
    for (int nGroup = 0; nGroup < node.listGroup.size(); ++nGroup) {
        const int nIndex = FindIn(node.listGroup.at(nGroup).listProcessor, id);
        if (nIndex >= 0) {
            return SNodePlace{ nGroup, nIndex };
        }
    }
    const int nIndex = FindIn(node.listProcessor, id);
    return nIndex < 0 ? std::nullopt : std::make_optional(SNodePlace{ -1, nIndex });
}

bool CNodeTree::Contains(const QUuid& id) const
{
    return FindGroup(id) >= 0 || FindProcessor(id);
}

QUuid CNodeTree::FindByName(const QString& strName) const
{
    for (const SProcessorGroupNode& group : node.listGroup) {
        const QUuid id = group.strName == strName ? group.idNode : FindNameIn(group.listProcessor, strName);
        if (!id.isNull()) {
            return id;
        }
    }
    return FindNameIn(node.listProcessor, strName);
}

const SProcessorNode& CNodeTree::GetProcessor(const SNodePlace& place) const
{
    return place.nGroup < 0 ? node.listProcessor.at(place.nIndex)
                            : node.listGroup.at(place.nGroup).listProcessor.at(place.nIndex);
}

SProcessorNode& CNodeTree::EditProcessor(const SNodePlace& place)
{
    QList<SProcessorNode>& listProcessor = EditList(place.nGroup);
    return listProcessor[place.nIndex];
}

SProcessorGroupNode& CNodeTree::EditGroup(int nGroup)
{
    QList<SProcessorGroupNode>& listGroup = node.listGroup;
    return listGroup[nGroup];
}

SProcessorNode CNodeTree::TakeProcessor(const SNodePlace& place)
{
    if (place.nGroup < 0) {
        return node.listProcessor.takeAt(place.nIndex);
    }
    SProcessorGroupNode& group = EditGroup(place.nGroup);
    SProcessorNode processor = group.listProcessor.takeAt(place.nIndex);
    processor.nChief = 0;
    if (group.idChief == processor.idNode) {
        group.idChief = QUuid();
    }
    return processor;
}

bool CNodeTree::MoveProcessor(const SNodePlace& place, int nGroup)
{
    if (place.nGroup == nGroup) {
        return false;
    }
    const SProcessorNode processor = TakeProcessor(place);
    EditList(nGroup).append(processor);
    return true;
}

// That of the root for -1.
QList<SProcessorNode>& CNodeTree::EditList(int nGroup)
{
    return nGroup < 0 ? node.listProcessor : EditGroup(nGroup).listProcessor;
}

// The root for a null id; null when the node is gone.
SNode* CNodeTree::EditNode(const QUuid& id)
{
    const int nGroup = FindGroup(id);
    const std::optional<SNodePlace> place = FindProcessor(id);
    if (id.isNull()) {
        return &node;
    }
    if (nGroup >= 0) {
        return &EditGroup(nGroup);
    }
    return place ? &EditProcessor(*place) : nullptr;
}

void CNodeTree::RemoveGroup(int nGroup, bool bWithProcessors)
{
    const SProcessorGroupNode group = node.listGroup.takeAt(nGroup);
    if (bWithProcessors) {
        return;
    }
    for (SProcessorNode processor : std::as_const(group.listProcessor)) {
        processor.nChief = 0;
        node.listProcessor.append(processor);
    }
}

bool CNodeTree::SetExpanded(const QUuid& id, bool bExpanded)
{
    SNode* pNode = EditNode(id);
    if (!pNode || pNode->bExpanded == bExpanded) {
        return false;
    }
    pNode->bExpanded = bExpanded;
    return true;
}

QString CNodeTree::GetName(const QUuid& id) const
{
    const int nGroup = FindGroup(id);
    if (nGroup >= 0) {
        return GetGroup(nGroup).strName;
    }
    const std::optional<SNodePlace> place = FindProcessor(id);
    return place ? GetProcessor(*place).strName : QString();
}

void CNodeTree::SetName(const QUuid& id, const QString& strName)
{
    Q_ASSERT(Contains(id));
    EditNode(id)->strName = strName;
}

bool CNodeTree::SetChief(int nGroup, const QUuid& idChief)
{
    if (GetGroup(nGroup).idChief == idChief) {
        return false;
    }
    SProcessorGroupNode& group = EditGroup(nGroup);
    group.idChief = idChief;
    for (int nIndex = 0; nIndex < group.listProcessor.size(); ++nIndex) {
        group.listProcessor[nIndex].nChief = !idChief.isNull() && group.listProcessor.at(nIndex).idNode == idChief ? 1 : 0;
    }
    return true;
}

int CNodeTree::GetNextGroupIndex() const
{
    QSet<int> setTaken;
    for (const SProcessorGroupNode& group : node.listGroup) {
        setTaken.insert(ReadGroupNumber(group.strName));
    }
    int nNext = 1;
    while (setTaken.contains(nNext)) {
        ++nNext;
    }
    return nNext;
}
