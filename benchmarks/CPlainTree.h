#pragma once

#include <QIcon>

class QAbstractItemView;
class QStandardItemModel;
class QTreeWidget;
struct SProcessorAllNode;

/// What one would write with Qt's own item views for the same rows: an icon and a text each.
class CPlainTree
{
public:
    CPlainTree();

    /// Puts pTree in the panel's place, under the same sheet, on the screen.
    static void Prepare(QTreeWidget* pTree);

    /// Hides the rows that Fill made and that strText is not in, by the panel's rule.
    static void Filter(QTreeWidget* pTree, const QString& strText);

    /// Empties pTree and fills it anew: a root, groups with their members, processors without a group,
    /// one information row under each processor; expanded as the records say.
    void Fill(QTreeWidget* pTree, const SProcessorAllNode& node) const;

    /// The processors of node as flat rows under one root, for a QTreeView.
    void Fill(QStandardItemModel* pModel, const SProcessorAllNode& node) const;

private:
    QIcon iconGroup;
    QIcon iconOnline;
    QIcon iconOffline;
};
