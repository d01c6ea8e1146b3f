#include "CorvidControl/list/PaneMerge.h"

#include "CorvidControl/devices/DeviceReport.h"

#include <algorithm>

namespace {

// A tree by its ids. The home of a processor is the id of its group, null for the root.
struct SIndex
{
    explicit SIndex(const SProcessorAllNode& nodeIn) : node(nodeIn)
    {
        for (const SProcessorGroupNode& group : node.listGroup) {
            listGroup.append(group.idNode);
            hashGroup.insert(group.idNode, group);
            Add(group.idNode, group.listProcessor);
        }
        Add({}, node.listProcessor);
    }

    void Add(const QUuid& idHome, const QList<SProcessorNode>& listProcessor)
    {
        for (const SProcessorNode& processor : listProcessor) {
            hashMembers[idHome].append(processor.idNode);
            listAll.append(processor.idNode);
            hashHome.insert(processor.idNode, idHome);
            hashProcessor.insert(processor.idNode, processor);
        }
    }

    const SProcessorAllNode node;
    QList<QUuid> listGroup;                 ///< in the order shown
    QList<QUuid> listAll;                   ///< the processors, in the order shown
    QHash<QUuid, QList<QUuid>> hashMembers; ///< by home, in the order shown
    QHash<QUuid, QUuid> hashHome;           ///< by processor
    QHash<QUuid, SProcessorNode> hashProcessor;
    QHash<QUuid, SProcessorGroupNode> hashGroup;
};

template <typename Value> Value Pick(const Value& from, const Value& to, const Value& present)
{
    return to != from ? to : present;
}

// The largest part of the ids of both lists that has the same order in both.
QSet<QUuid> FindInOrder(const QList<QUuid>& listFrom, const QList<QUuid>& listTo)
{
    QVector<int> vecAt; // the ids of listTo that are in both, by their places in listFrom
    for (const QUuid& id : listTo) {
        const int nAt = listFrom.indexOf(id);
        if (nAt >= 0) {
            vecAt.append(nAt);
        }
    }
    QVector<int> vecLength(vecAt.size(), 1);
    QVector<int> vecBefore(vecAt.size(), -1);
    int nLast = vecAt.isEmpty() ? -1 : 0;
    for (int n = 0; n < vecAt.size(); ++n) {
        for (int nOther = 0; nOther < n; ++nOther) {
            if (vecAt.at(nOther) < vecAt.at(n) && vecLength.at(nOther) >= vecLength.at(n)) {
                vecLength[n] = vecLength.at(nOther) + 1;
                vecBefore[n] = nOther;
            }
        }
        nLast = vecLength.at(n) > vecLength.at(nLast) ? n : nLast;
    }
    QSet<QUuid> setInOrder;
    for (; nLast >= 0; nLast = vecBefore.at(nLast)) {
        setInOrder.insert(listFrom.at(vecAt.at(nLast)));
    }
    return setInOrder;
}

// What the network knows a device by, but for its state.
bool IsSameDevice(const SProcessorNode& node, const SProcessorNode& other)
{
    return node.idNode == other.idNode && node.idAux == other.idAux && node.nModel == other.nModel
        && node.strType == other.strType && node.nIP == other.nIP && node.nPortA == other.nPortA && node.nPortB == other.nPortB;
}

bool IsSame(const SProcessorAllNode& node, const SProcessorAllNode& other)
{
    return node.strName == other.strName && node.bExpanded == other.bExpanded && node.listGroup == other.listGroup
        && node.listProcessor == other.listProcessor;
}

class CMerge
{
public:
    CMerge(const SProcessorAllNode& fromIn, const SProcessorAllNode& toIn, const SProcessorAllNode& presentIn,
           const QHash<QUuid, SProcessorNode>& hashHeardIn)
        : from(fromIn), to(toIn), present(presentIn), hashHeard(hashHeardIn)
    {
        FindGroups();
        FindHomes();
    }

    SPaneMerge Run();

private:
    void FindGroups();
    void FindHomes();
    QUuid FindHome(const QUuid& id) const;
    QList<SProcessorNode> BuildMembers(const QUuid& idHome);
    SProcessorNode BuildProcessor(const QUuid& id) const;
    SProcessorNode BuildBack(const QUuid& id) const;
    SProcessorNode MendChief(const SProcessorNode& node, const QUuid& id) const;
    bool IsFoundAgain(const QUuid& id) const;
    SProcessorGroupNode BuildGroup(const QUuid& id);
    QUuid FindChief(const QUuid& idGroup) const;
    bool HasSameMembers(const QUuid& idGroup) const;
    void FindTakenAddress(SPaneMerge& merge) const;

    // True for a node that is in one of the trees alone, and goes, or comes back.
    template <typename Hash> static bool IsOnlyIn(const Hash& hash, const Hash& other, const QUuid& id)
    {
        return hash.contains(id) && !other.contains(id);
    }

    const SIndex from;
    const SIndex to;
    const SIndex present;
    const QHash<QUuid, SProcessorNode> hashHeard;
    QSet<QUuid> setGroup;                  ///< of the result
    QHash<QUuid, QUuid> hashHome;          ///< of the result's processors
    QHash<QUuid, QSet<QUuid>> hashMembers; ///< of the result, by home
    QList<QUuid> listStray;                ///< whose group is not there: to the end of the root
};

void CMerge::FindGroups()
{
    for (const QUuid& id : present.listGroup) {
        if (!IsOnlyIn(from.hashGroup, to.hashGroup, id)) {
            setGroup.insert(id);
        }
    }
    for (const QUuid& id : to.listGroup) {
        if (!from.hashGroup.contains(id)) {
            setGroup.insert(id);
        }
    }
}

void CMerge::FindHomes()
{
    QList<QUuid> listId = present.listAll;
    for (const QUuid& id : to.listAll) {
        if (!from.hashHome.contains(id) && !present.hashHome.contains(id)) {
            listId.append(id);
        }
    }
    for (const QUuid& id : std::as_const(listId)) {
        if (IsOnlyIn(from.hashHome, to.hashHome, id)) {
            continue;
        }
        const QUuid idHome = FindHome(id);
        const bool bThere = idHome.isNull() || setGroup.contains(idHome);
        hashHome.insert(id, bThere ? idHome : QUuid());
        if (bThere) {
            hashMembers[idHome].insert(id);
        } else {
            listStray.append(id);
        }
    }
}

// The group may not be there.
QUuid CMerge::FindHome(const QUuid& id) const
{
    const QUuid idHomeTo = to.hashHome.value(id);
    if (!present.hashHome.contains(id)) {
        return idHomeTo;
    }
    const bool bMoved = from.hashHome.contains(id) && to.hashHome.contains(id) && from.hashHome.value(id) != idHomeTo;
    const bool bMoves = bMoved || IsFoundAgain(id);
    const bool bThere = idHomeTo.isNull() || setGroup.contains(idHomeTo);
    return bMoves && bThere ? idHomeTo : present.hashHome.value(id);
}

// It was deleted, and a scan has put it to the root under the name that the device gives itself.
bool CMerge::IsFoundAgain(const QUuid& id) const
{
    return IsOnlyIn(to.hashHome, from.hashHome, id) && present.hashHome.contains(id) && present.hashHome.value(id).isNull();
}

SPaneMerge CMerge::Run()
{
    SPaneMerge merge;
    merge.result.strName = Pick(from.node.strName, to.node.strName, present.node.strName);
    merge.result.bExpanded = present.node.bExpanded;
    const QList<QUuid> listGroup = PaneMerge::MergeOrder(from.listGroup, to.listGroup, present.listGroup, setGroup);
    for (const QUuid& id : listGroup) {
        merge.result.listGroup.append(BuildGroup(id));
    }
    merge.result.listProcessor = BuildMembers({});
    for (const QUuid& id : std::as_const(listStray)) {
        merge.result.listProcessor.append(BuildProcessor(id));
    }
    for (const QUuid& id : present.listAll) {
        if (!hashHome.contains(id)) {
            merge.listGone.append(present.hashProcessor.value(id));
        }
    }
    FindTakenAddress(merge);
    merge.bChanged = !IsSame(merge.result, present.node);
    return merge;
}

QList<SProcessorNode> CMerge::BuildMembers(const QUuid& idHome)
{
    QList<SProcessorNode> listProcessor;
    const QList<QUuid> listId = PaneMerge::MergeOrder(from.hashMembers.value(idHome), to.hashMembers.value(idHome),
                                                      present.hashMembers.value(idHome), hashMembers.value(idHome));
    for (const QUuid& id : listId) {
        listProcessor.append(BuildProcessor(id));
    }
    return listProcessor;
}

SProcessorNode CMerge::BuildProcessor(const QUuid& id) const
{
    if (!present.hashProcessor.contains(id)) {
        return BuildBack(id);
    }
    SProcessorNode processor = present.hashProcessor.value(id);
    processor.strName = IsFoundAgain(id) ? to.hashProcessor.value(id).strName : processor.strName;
    if (hashHome.value(id) != present.hashHome.value(id)) {
        const bool bToItsGroup = hashHome.value(id) == to.hashHome.value(id);
        processor.nChief = bToItsGroup ? to.hashProcessor.value(id).nChief : 0;
    }
    if (from.hashProcessor.contains(id) && to.hashProcessor.contains(id)) {
        const SProcessorNode was = from.hashProcessor.value(id);
        const SProcessorNode now = to.hashProcessor.value(id);
        processor.strName = Pick(was.strName, now.strName, processor.strName);
        processor.nChief = Pick(was.nChief, now.nChief, processor.nChief);
        processor.idAux = Pick(was.idAux, now.idAux, processor.idAux);
        processor.nModel = Pick(was.nModel, now.nModel, processor.nModel);
        processor.strType = Pick(was.strType, now.strType, processor.strType);
        processor.nIP = Pick(was.nIP, now.nIP, processor.nIP);
        processor.nPortA = Pick(was.nPortA, now.nPortA, processor.nPortA);
        processor.nPortB = Pick(was.nPortB, now.nPortB, processor.nPortB);
    }
    return MendChief(processor, id);
}

// One that led its group, or is to lead it again, has no mark where another does.
SProcessorNode CMerge::MendChief(const SProcessorNode& node, const QUuid& id) const
{
    SProcessorNode processor = node;
    const QUuid idHome = hashHome.value(id);
    const bool bWasChief
        = present.hashGroup.value(idHome).idChief == id || (!idHome.isNull() && to.hashGroup.value(idHome).idChief == id);
    processor.nChief = bWasChief && FindChief(idHome) != id ? 0 : processor.nChief;
    return processor;
}

SProcessorNode CMerge::BuildBack(const QUuid& id) const
{
    SProcessorNode processor = to.hashProcessor.value(id);
    if (hashHeard.contains(id)) {
        processor = DeviceReport::TakeState(processor, hashHeard.value(id));
    }
    processor.nChief = hashHome.value(id) == to.hashHome.value(id) ? processor.nChief : 0;
    return MendChief(processor, id);
}

SProcessorGroupNode CMerge::BuildGroup(const QUuid& id)
{
    SProcessorGroupNode group = present.hashGroup.contains(id) ? present.hashGroup.value(id) : to.hashGroup.value(id);
    if (from.hashGroup.contains(id) && to.hashGroup.contains(id)) {
        group.strName = Pick(from.hashGroup.value(id).strName, to.hashGroup.value(id).strName, group.strName);
        group.setAux = Pick(from.hashGroup.value(id).setAux, to.hashGroup.value(id).setAux, group.setAux);
    }
    group.idChief = FindChief(id);
    group.listProcessor = BuildMembers(id);
    return group;
}

// One that came from outside since stays, unless the edit was about the Chief. One that is no member is none, unless the
// present tree has it so.
QUuid CMerge::FindChief(const QUuid& idGroup) const
{
    const SProcessorGroupNode group = present.hashGroup.value(idGroup);
    QUuid idChief = present.hashGroup.contains(idGroup) ? group.idChief : to.hashGroup.value(idGroup).idChief;
    if (from.hashGroup.contains(idGroup) && to.hashGroup.contains(idGroup)) {
        const QUuid idWas = from.hashGroup.value(idGroup).idChief;
        const bool bFollows = idChief == idWas || HasSameMembers(idGroup);
        idChief = bFollows ? Pick(idWas, to.hashGroup.value(idGroup).idChief, idChief) : idChief;
    }
    const bool bMember = hashMembers.value(idGroup).contains(idChief);
    const bool bAsIs = idChief == group.idChief && !present.hashMembers.value(idGroup).contains(idChief);
    return bMember || bAsIs ? idChief : QUuid();
}

bool CMerge::HasSameMembers(const QUuid& idGroup) const
{
    const QList<QUuid> listFrom = from.hashMembers.value(idGroup);
    const QList<QUuid> listTo = to.hashMembers.value(idGroup);
    return QSet<QUuid>(listFrom.cbegin(), listFrom.cend()) == QSet<QUuid>(listTo.cbegin(), listTo.cend());
}

void CMerge::FindTakenAddress(SPaneMerge& merge) const
{
    QMultiHash<quint32, QUuid> hashOld; // the processors that keep their address
    QList<SProcessorNode> listNew;
    for (auto it = hashHome.cbegin(); it != hashHome.cend(); ++it) {
        const SProcessorNode processor = BuildProcessor(it.key());
        const SProcessorNode before = present.hashProcessor.value(it.key());
        if (before.idNode.isNull() || before.nIP != processor.nIP) {
            listNew.append(processor);
        } else {
            hashOld.insert(processor.nIP, it.key());
        }
        if (!IsSameDevice(before, processor)) {
            merge.listBack.append(processor);
        }
    }
    for (const SProcessorNode& processor : std::as_const(listNew)) {
        const QList<QUuid> listOther = hashOld.values(processor.nIP);
        for (const QUuid& id : listOther) {
            const bool bBefore = to.hashProcessor.contains(id) && to.hashProcessor.value(id).nIP == processor.nIP;
            merge.nTakenIP = bBefore ? merge.nTakenIP : processor.nIP;
        }
    }
}

} // namespace

SPaneMerge PaneMerge::Merge(const SProcessorAllNode& from, const SProcessorAllNode& to, const SProcessorAllNode& present,
                            const QHash<QUuid, SProcessorNode>& hashHeard)
{
    return CMerge(from, to, present, hashHeard).Run();
}

QList<QUuid> PaneMerge::MergeOrder(const QList<QUuid>& listFrom, const QList<QUuid>& listTo, const QList<QUuid>& listPresent,
                                   const QSet<QUuid>& setMember)
{
    const QSet<QUuid> setFrom(listFrom.cbegin(), listFrom.cend());
    const QSet<QUuid> setTo(listTo.cbegin(), listTo.cend());
    const QSet<QUuid> setInOrder = FindInOrder(listFrom, listTo);
    QList<QUuid> listResult;
    for (const QUuid& id : listPresent) {
        const bool bMoved = setFrom.contains(id) && setTo.contains(id) && !setInOrder.contains(id);
        if (setMember.contains(id) && !bMoved) {
            listResult.append(id);
        }
    }
    int nAt = 0; // behind the nearest earlier neighbour
    for (const QUuid& id : listTo) {
        const int nThere = listResult.indexOf(id);
        if (nThere >= 0) {
            nAt = nThere + 1;
        } else if (setMember.contains(id)) {
            listResult.insert(nAt++, id);
        }
    }
    return listResult;
}
