#include "TreeText.h"

#include "CNameRegistry.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QAbstractItemModel>
#include <QItemSelectionModel>
#include <QTreeView>

#include <functional>

namespace {

using FnFlags = std::function<QString(const QModelIndex&)>;

QString RowText(const QModelIndex& index)
{
    const int nType = index.data(RoleNodeType).toInt();
    const QString strName = QLatin1Char(' ') + CNameRegistry::Instance().Text(index.data(RoleNodeId).value<QUuid>());
    switch (nType) {
    case NodeAll:
        return QStringLiteral("all");
    case NodeGroup:
        return QStringLiteral("group") + strName;
    case NodeProcessor:
        return QStringLiteral("processor") + strName;
    case NodeInfo:
        return QStringLiteral("info") + strName;
    default:
        return QStringLiteral("row %1").arg(nType);
    }
}

void AppendRows(const QAbstractItemModel* pModel, const QModelIndex& indexParent, int nLevel, const FnFlags& fnFlags,
                QString& strText)
{
    for (int i = 0; i < pModel->rowCount(indexParent); ++i) {
        const QModelIndex index = pModel->index(i, 0, indexParent);
        strText += QString(2 * nLevel, QLatin1Char(' ')) + RowText(index) + fnFlags(index) + QLatin1Char('\n');
        AppendRows(pModel, index, nLevel + 1, fnFlags, strText);
    }
}

} // namespace

QString TreeText(const QTreeView* pView)
{
    QString strText;
    const auto fnFlags = [pView](const QModelIndex& index) {
        const bool bExpanded = pView->isExpanded(index) && pView->model()->hasChildren(index);
        return QLatin1String(bExpanded ? " [expanded]" : "")
            + QLatin1String(pView->isRowHidden(index.row(), index.parent()) ? " [hidden]" : "")
            + QLatin1String(pView->selectionModel()->isSelected(index) ? " [selected]" : "");
    };
    AppendRows(pView->model(), QModelIndex(), 0, fnFlags, strText);
    return strText;
}

QString TreeText(const QAbstractItemModel* pModel)
{
    QString strText;
    AppendRows(pModel, QModelIndex(), 0, [](const QModelIndex&) { return QString(); }, strText);
    return strText;
}
