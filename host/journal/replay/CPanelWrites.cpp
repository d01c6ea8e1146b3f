#include "journal/replay/CPanelWrites.h"

#include "journal/replay/SRecordedLine.h"
#include "nodes/SProcessorAllNode.h"

#include <QUuid>

#include <algorithm>

namespace {

bool IsWrite(const QString& strOperation)
{
    return strOperation == QLatin1String("SetSelectedNodes") || strOperation == QLatin1String("SetExpanded")
        || strOperation == QLatin1String("SetSimulatorPane");
}

template <typename Node> bool Expand(QList<Node>& list, const QUuid& id, bool bExpanded)
{
    const auto it = std::find_if(list.cbegin(), list.cend(), [&](const Node& node) { return node.idNode == id; });
    if (it == list.cend()) {
        return false;
    }
    list[static_cast<int>(it - list.cbegin())].bExpanded = bExpanded;
    return true;
}

void Expand(SProcessorAllNode& node, const QUuid& id, bool bExpanded)
{
    if (id.isNull()) {
        node.bExpanded = bExpanded;
        return;
    }
    QList<SProcessorGroupNode>& listGroup = node.listGroup;
    bool bFound = Expand(listGroup, id, bExpanded) || Expand(node.listProcessor, id, bExpanded);
    for (int n = 0; n < listGroup.size() && !bFound; ++n) {
        bFound = Expand(listGroup[n].listProcessor, id, bExpanded);
    }
}

} // namespace

void CPanelWrites::Note(const SReplayedCall& call, quint64 nNumber)
{
    if (!IsWrite(call.strOperation)) {
        return;
    }
    if (call.strOperation == QLatin1String("SetSimulatorPane")) {
        bSimulatorPane = call.args.at(0).toBool();
    }
    vecWrite.push_back({ call, nNumber, bSimulatorPane });
}

void CPanelWrites::Apply(SReplayAnswer& answer, const SRecordedLine& line, quint64 nLock)
{
    const auto it = std::remove_if(vecWrite.begin(), vecWrite.end(), [&](const SWrite& write) { return write.nNumber < nLock; });
    vecWrite.erase(it, vecWrite.end());
    for (const SWrite& write : vecWrite) {
        ApplyOne(answer, line, write);
    }
    if (line.strOperation == QLatin1String("IsSimulatorPane")) {
        bSimulatorPane = answer.value.toBool();
    }
}

void CPanelWrites::ApplyOne(SReplayAnswer& answer, const SRecordedLine& line, const SWrite& write)
{
    const bool bPane = line.strOperation == QLatin1String("IsSimulatorPane");
    const bool bSelection = line.strOperation == QLatin1String("GetSelectedNodes")
        && line.fields.value(QStringLiteral("args")).toArray().at(0).toBool() == write.bSimulator;
    const bool bTree = answer.pTree && (line.strOperation == QLatin1String("GetSimulatorTree")) == write.bSimulator;
    if ((bPane && write.call.strOperation == QLatin1String("SetSimulatorPane"))
        || (bSelection && write.call.strOperation == QLatin1String("SetSelectedNodes"))) {
        answer.value = write.call.args.at(0);
    } else if (bTree && write.call.strOperation == QLatin1String("SetExpanded")) {
        const auto pTree = QSharedPointer<SProcessorAllNode>::create(*answer.pTree);
        Expand(*pTree, QUuid(write.call.args.at(0).toString()), write.call.args.at(1).toBool());
        answer.pTree = pTree;
    }
}
