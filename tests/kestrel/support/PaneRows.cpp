#include "PaneRows.h"

#include "Kestrel/player/PanelAccess.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QTreeView>

#include <algorithm>

namespace {

QString Line(const QString& strText, int nDepth, bool bOpen, bool bSelected)
{
    return QString(nDepth * 2, ' ') + strText + (bOpen ? " [+]" : "") + (bSelected ? "*" : "") + '\n';
}

// Behind the name a group says how many it has, which the rows under it show.
QString SpokenName(const QModelIndex& index)
{
    const QString strText = index.data(Qt::AccessibleTextRole).toString();
    return PanelAccess::GetNodeType(index) == NodeGroup ? strText.section(", group, ", 0, 0) : strText;
}

QString ShownRow(const QTreeView* pTree, const QModelIndex& index, int nDepth)
{
    if (PanelAccess::GetNodeType(index) == NodeInfo || pTree->isRowHidden(index.row(), index.parent())) {
        return {};
    }
    const bool bOpen = pTree->model()->hasChildren(index) && pTree->isExpanded(index);
    QString strText = Line(SpokenName(index), nDepth, bOpen, pTree->selectionModel()->isSelected(index));
    for (int n = 0; n < pTree->model()->rowCount(index); ++n) {
        strText += ShownRow(pTree, pTree->model()->index(n, 0, index), nDepth + 1);
    }
    return strText;
}

/// The rows of a pane as they would be shown.
class CTrueRows
{
public:
    explicit CTrueRows(const std::vector<QUuid>& vecSelectedIn) : vecSelected(vecSelectedIn) { }

    QString All(const SProcessorAllNode& node) const
    {
        QString strText;
        for (const SProcessorGroupNode& group : node.listGroup) {
            strText += Line(group.strName, 0, group.bExpanded && !group.listProcessor.isEmpty(), IsSelected(group.idNode));
            strText += Processors(group.listProcessor, 1);
        }
        return strText + Processors(node.listProcessor, 0);
    }

private:
    QString Processors(const QList<SProcessorNode>& listProcessor, int nDepth) const
    {
        QString strText;
        for (const SProcessorNode& processor : listProcessor) {
            const bool bRole = processor.bOnline && processor.nFailover != 0 && !processor.strProject.isEmpty();
            const QString strRole = !bRole ? "" : processor.nFailover == 1 ? ", Primary" : ", Backup";
            strText += Line(processor.strName + (processor.bOnline ? ", online" : ", offline") + strRole, nDepth,
                            processor.bExpanded, IsSelected(processor.idNode));
        }
        return strText;
    }

    bool IsSelected(const QUuid& id) const
    {
        return std::find(vecSelected.cbegin(), vecSelected.cend(), id) != vecSelected.cend();
    }

    const std::vector<QUuid> vecSelected;
};

} // namespace

QString PaneRows::GetShown(const QTreeView* pTree)
{
    const QAbstractItemModel* pModel = pTree->model();
    const QModelIndex indexRoot = pModel->index(0, 0);
    QString strText;
    for (int n = 0; n < pModel->rowCount(indexRoot); ++n) {
        strText += ShownRow(pTree, pModel->index(n, 0, indexRoot), 0);
    }
    return strText;
}

QString PaneRows::GetTruth(const SProcessorAllNode& node, const std::vector<QUuid>& vecSelected)
{
    return CTrueRows(vecSelected).All(node);
}
