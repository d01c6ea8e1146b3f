#include "CPlainTree.h"

#include "CBenchPanel.h"

#include "nodes/SProcessorAllNode.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QHostAddress>
#include <QStandardItemModel>
#include <QTreeWidget>

namespace {

const QSize sizeRow(0, 32);
const QSize sizeInfo(0, 92);

template <typename Parent> QTreeWidgetItem* AddRow(Parent* pParent, const QString& strText, const QIcon& icon, const QSize& size)
{
    auto* pItem = new QTreeWidgetItem(pParent, { strText });
    pItem->setIcon(0, icon);
    pItem->setSizeHint(0, size);
    return pItem;
}

QString InfoText(const SProcessorNode& node)
{
    return QStringLiteral("Type: %1\nIP: %2\nProject: %3\nUID: %4")
        .arg(node.strType, QHostAddress(node.nIP).toString(), node.strProject, node.idNode.toString(QUuid::WithoutBraces));
}

bool IsProcessor(const QTreeWidgetItem& item)
{
    return item.childCount() == 1 && item.child(0)->childCount() == 0;
}

// The information row has type and address.
bool Matches(const QTreeWidgetItem& item, const QString& strText)
{
    return item.text(0).contains(strText, Qt::CaseInsensitive) || item.child(0)->text(0).contains(strText, Qt::CaseInsensitive);
}

void FilterGroup(QTreeWidgetItem* pGroup, const QString& strText)
{
    const bool bNameMatches = pGroup->text(0).contains(strText, Qt::CaseInsensitive);
    bool bShown = bNameMatches;
    for (int i = 0; i < pGroup->childCount(); ++i) {
        const bool bMatches = Matches(*pGroup->child(i), strText);
        bShown = bShown || bMatches;
        pGroup->child(i)->setHidden(!bMatches && !bNameMatches);
    }
    pGroup->setHidden(!bShown);
}

} // namespace

CPlainTree::CPlainTree()
    : iconGroup(QStringLiteral(":/image/treeView/groupNode/group_normal.svg")),
      iconOnline(QStringLiteral(":/image/treeView/online/online.svg")),
      iconOffline(QStringLiteral(":/image/treeView/online/offline.svg"))
{ }

void CPlainTree::Prepare(QTreeWidget* pTree)
{
    pTree->setObjectName(QStringLiteral("ProcessorTree"));
    pTree->setStyleSheet(CBenchPanel::Sheet());
    pTree->header()->hide();
    pTree->setIndentation(15);
    pTree->resize(CBenchPanel::nWidth, CBenchPanel::nDefaultHeight);
    pTree->show();
    QCoreApplication::processEvents();
}

void CPlainTree::Filter(QTreeWidget* pTree, const QString& strText)
{
    QTreeWidgetItem* const pRoot = pTree->topLevelItem(0);
    for (int i = 0; i < pRoot->childCount(); ++i) {
        QTreeWidgetItem* const pItem = pRoot->child(i);
        if (IsProcessor(*pItem)) {
            pItem->setHidden(!Matches(*pItem, strText));
        } else {
            FilterGroup(pItem, strText);
        }
    }
}

void CPlainTree::Fill(QTreeWidget* pTree, const SProcessorAllNode& node) const
{
    const auto fnAddProcessor = [this](QTreeWidgetItem* pParent, const SProcessorNode& processor) {
        auto* pItem = AddRow(pParent, processor.strName, processor.bOnline ? iconOnline : iconOffline, sizeRow);
        AddRow(pItem, InfoText(processor), QIcon(), sizeInfo);
        pItem->setExpanded(processor.bExpanded);
    };
    pTree->clear();
    auto* pRoot = AddRow(pTree, QStringLiteral("All processors"), iconGroup, sizeRow);
    pRoot->setExpanded(true);
    for (const SProcessorGroupNode& group : node.listGroup) {
        auto* pGroup
            = AddRow(pRoot, QStringLiteral("%1(%2)").arg(group.strName).arg(group.listProcessor.size()), iconGroup, sizeRow);
        for (const SProcessorNode& processor : group.listProcessor) {
            fnAddProcessor(pGroup, processor);
        }
        pGroup->setExpanded(group.bExpanded);
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        fnAddProcessor(pRoot, processor);
    }
}

void CPlainTree::Fill(QStandardItemModel* pModel, const SProcessorAllNode& node) const
{
    pModel->clear();
    auto* pRoot = new QStandardItem(iconGroup, QStringLiteral("All processors"));
    pRoot->setData(sizeRow, Qt::SizeHintRole);
    for (const SProcessorNode& processor : node.listProcessor) {
        auto* pItem = new QStandardItem(processor.bOnline ? iconOnline : iconOffline, processor.strName);
        pItem->setData(sizeRow, Qt::SizeHintRole);
        pRoot->appendRow(pItem);
    }
    pModel->appendRow(pRoot);
}
