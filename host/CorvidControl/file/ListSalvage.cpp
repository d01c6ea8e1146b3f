#include "CorvidControl/file/ListSalvage.h"

#include "CorvidControl/file/CNodeSalvage.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/CNodeTree.h"

namespace {

// Reads the nodes of one list in their order.
class CListSalvage
{
public:
    explicit CListSalvage(const SListLimits& limitsIn) : limits(limitsIn), nodes(limitsIn) { }

    void Read(const SJsonPart& root, SRefusedList& list);

private:
    void ReadGroup(const SJsonPart& part, SRefusedList& list);
    void ReadProcessor(const SJsonPart& part, const QString& strPlace, QList<SProcessorNode>& listTo, SRefusedList& list);

    const SListLimits limits;
    CNodeSalvage nodes;
    int nGroup = 0;     // in the file; so are those below
    int nProcessor = 0; // of the root
};

// What a node is shows by its keys where the beginning of its array is gone.
bool IsGroup(const SJsonPart& part)
{
    return part.object.contains(QStringLiteral("processors"))
        || (part.strKey == QLatin1String("groups") && !part.object.contains(QStringLiteral("ip")));
}

void CListSalvage::Read(const SJsonPart& root, SRefusedList& list)
{
    list.node.bExpanded = root.object.value(QStringLiteral("expanded")).toBool(true);
    list.node.strName = nodes.ReadRootName(root, list.node.strName);
    for (const SJsonPart& part : root.vecPart) {
        if (IsGroup(part)) {
            ReadGroup(part, list);
        } else {
            ReadProcessor(part, QStringLiteral("processor %1 of the root").arg(++nProcessor), list.node.listProcessor, list);
        }
    }
    if (!root.bWhole) {
        nodes.AddFault(QStringLiteral("the list"), QStringLiteral("its end is missing"));
    }
    list.listFault += nodes.GetFaults();
    list.nMended = nodes.GetMended();
}

void CListSalvage::ReadGroup(const SJsonPart& part, SRefusedList& list)
{
    const QString strPlace = QStringLiteral("group %1").arg(++nGroup);
    const bool bFits = list.node.listGroup.size() < limits.nGroups;
    SProcessorGroupNode group = nodes.ReadGroup(part, strPlace, QStringLiteral("Group %1").arg(nGroup));
    for (int n = 0; n < part.vecPart.size(); ++n) {
        ReadProcessor(part.vecPart.at(n), QStringLiteral("processor %1 of %2").arg(n + 1).arg(strPlace),
                      bFits ? group.listProcessor : list.node.listProcessor, list);
    }
    if (bFits) {
        list.node.listGroup.append(group);
        ++list.nGroups;
    } else {
        ++list.nLost;
        nodes.AddFault(strPlace, QStringLiteral("there are more than %1 groups").arg(limits.nGroups));
    }
}

void CListSalvage::ReadProcessor(const SJsonPart& part, const QString& strPlace, QList<SProcessorNode>& listTo,
                                 SRefusedList& list)
{
    if (list.nProcessors >= limits.nProcessors) {
        ++list.nLost;
        nodes.AddFault(strPlace, QStringLiteral("there are more than %1 processors").arg(limits.nProcessors));
        return;
    }
    const std::optional<SProcessorNode> processor = nodes.ReadProcessor(part, strPlace);
    if (processor) {
        listTo.append(*processor);
        ++list.nProcessors;
    } else {
        ++list.nLost;
    }
}

// A list says so in its first line, or by its two arrays.
bool IsList(const QByteArray& bytes, const SJsonPart& root)
{
    const bool bArrays = root.object.contains(QStringLiteral("groups")) && root.object.contains(QStringLiteral("processors"));
    return bArrays || (bytes.startsWith("kvtl ") && (root.object.contains(QStringLiteral("groups")) || !root.vecPart.isEmpty()));
}

// All of it, where no more is wrong than the first line.
bool ReadWhole(const QByteArray& body, const SListLimits& limits, SRefusedList& list)
{
    const SListReading reading = ListFormat::ReadBody(body, limits, ListFormat::NamesMended);
    if (reading.verdict != SListReading::Valid) {
        return false;
    }
    CNodeTree tree;
    tree.SetRoot(reading.node);
    list.node = reading.node;
    list.nGroups = reading.node.listGroup.size();
    list.nProcessors = tree.GetProcessorCount();
    list.nMended = reading.listMended.size();
    list.listFault += reading.listMended;
    return true;
}

} // namespace

SRefusedList ListSalvage::Read(const QByteArray& bytes, const SListLimits& limits)
{
    SRefusedList list;
    const QString strReason = ListFormat::Read(bytes, limits, ListFormat::NamesMended).strReason;
    if (!strReason.isEmpty()) {
        list.listFault.append(strReason);
    }
    const int nStart = bytes.indexOf('{');
    const QByteArray body = nStart < 0 ? QByteArray() : bytes.mid(nStart);
    list.bUsable = bytes.startsWith("kvtl ") && ReadWhole(body, limits, list);
    if (!list.bUsable) {
        const SJsonPart root
            = JsonParts::Read(body, { QStringLiteral("groups"), QStringLiteral("processors") }, { QStringLiteral("aux") });
        list.bUsable = bytes.size() <= limits.nBytes && IsList(bytes, root);
        if (list.bUsable) {
            CListSalvage(limits).Read(root, list);
        }
    }
    return list;
}
