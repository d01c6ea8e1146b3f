#include "PaneText.h"

#include "Kestrel/player/PanelAccess.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QStackedLayout>
#include <QTreeView>

#include <algorithm>

namespace {

/// "Wall 1" of "Wall 1, online", and so of a name with a comma only what stands before that.
QString GetSpoken(const QString& strText)
{
    return strText.section(QLatin1Char(','), 0, 0);
}

QString GetName(const QModelIndex& index)
{
    return GetSpoken(index.data(Qt::AccessibleTextRole).toString());
}

void AppendRows(const QTreeView* pTree, const QModelIndex& parent, const QString& strIndent, QStringList& listLine)
{
    for (int nRow = 0; nRow < pTree->model()->rowCount(parent); ++nRow) {
        const QModelIndex index = pTree->model()->index(nRow, 0, parent);
        if (PanelAccess::GetNodeType(index) == NodeInfo) {
            continue;
        }
        const QString strMark = pTree->selectionModel()->isSelected(index) ? QStringLiteral("*") : QString();
        listLine.append(strIndent + GetName(index) + strMark);
        AppendRows(pTree, index, strIndent + QStringLiteral("  "), listLine);
    }
}

} // namespace

QTreeView* PaneText::FindTree(QWidget* pPanel, bool bSimulator)
{
    return qobject_cast<QTreeView*>(PanelAccess::FindPanes(pPanel)->widget(bSimulator ? 1 : 0));
}

QString PaneText::GetShown(const QTreeView* pTree)
{
    const QModelIndex indexRoot = pTree->model()->index(0, 0);
    QStringList listLine{ pTree->selectionModel()->isSelected(indexRoot) ? QStringLiteral("all*") : QStringLiteral("all") };
    AppendRows(pTree, indexRoot, {}, listLine);
    return listLine.join(QLatin1Char('\n'));
}

QString PaneText::GetTruth(bool bSimulator)
{
    const std::vector<QUuid> vecSelected = g_pRuntimeControl->GetSelectedNodes(bSimulator);
    const auto fnLine = [&](const QString& strName, const QUuid& id) {
        return GetSpoken(strName) + (std::find(vecSelected.begin(), vecSelected.end(), id) == vecSelected.end() ? "" : "*");
    };
    SProcessorAllNode node;
    bSimulator ? g_pPrcListControl->GetSimulatorTree(node) : g_pPrcListControl->GetDiscoveredTree(node);
    QStringList listLine{ fnLine("all", {}) };
    for (const SProcessorGroupNode& group : node.listGroup) {
        listLine.append(fnLine(group.strName, group.idNode));
        for (const SProcessorNode& processor : group.listProcessor) {
            listLine.append("  " + fnLine(processor.strName, processor.idNode));
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        listLine.append(fnLine(processor.strName, processor.idNode));
    }
    return listLine.join(QLatin1Char('\n'));
}
