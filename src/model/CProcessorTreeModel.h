#pragma once

#include <QMap>
#include <QStandardItemModel>
#include <QUuid>

class CProcessorItem;
class CProcessorTree;
struct SProcessorAllNode;
struct SProcessorGroupNode;
struct SProcessorNode;
struct SRowKey;

/// The rows of one pane: their shape and their ids, nothing of what they show. GUI thread.
///
/// There is no incremental update. When the tree has changed, all rows are replaced from the store's
/// current pane; the model does not know which pane it belongs to, so its tree calls it only while that
/// pane is current.
class CProcessorTreeModel : public QStandardItemModel // clazy:exclude=missing-qobject-macro
{
public:
    /// Builds the rows from the store as it stands. The map of ids stays empty and nothing is expanded
    /// until the first RebuildFromStore. The parent also is the view that is expanded and filtered.
    explicit CProcessorTreeModel(CProcessorTree* parent);
    ~CProcessorTreeModel() override;

    /// The only top-level row; always valid.
    QModelIndex GetRootIndex() const;

    /// The row of a group or processor; the root for the null id and for every id that has no row, since
    /// callers ask for ids that may have gone.
    QModelIndex GetIndexById(const QUuid& id) const;

    /// The row of this kind and id, without that fallback: invalid when there is none, as before the first
    /// RebuildFromStore.
    QModelIndex FindRow(const SRowKey& key) const;

    /// The user opened or folded a row: passed to the store first, then to the control library, so that the
    /// next refresh finds no difference.
    void DealExpanded(const QModelIndex& index);
    void DealCollapsed(const QModelIndex& index);

    /// Hides the rows that do not match and shows all others; an empty text shows all. A group shows
    /// when its name or any member matches, and shows all its members when its name does. Keeps no
    /// state: a rebuild ends the filter.
    void SetSearchText(const QString& strText);

    /// Replaces all rows, with the expansion of the records; the root is always expanded. The caller keeps
    /// the tree's signals blocked. Until it returns nothing may ask the view for geometry, since a
    /// forced layout makes it quadratic. While rows are replaced every id gives the root.
    void RebuildFromStore();

private:
    void SetExpanded(const QModelIndex& index, bool bExpanded);
    void FillMap(const SProcessorAllNode& node);
    void FillMap(const QList<SProcessorNode>& listProcessor, const QModelIndex& indexParent, int nFirstRow);
    void MapRow(const QUuid& id, const QModelIndex& indexRow);
    void RestoreExpansion(const SProcessorAllNode& node);
    void RestoreExpansion(const QList<SProcessorNode>& listProcessor, const QModelIndex& indexParent, int nFirstRow);
    void FilterGroup(const SProcessorGroupNode& group, const QString& strText);
    void HideRow(const QUuid& id, bool bHide);

    CProcessorItem* pRootItem; ///< the only top-level row; owned by the model
    CProcessorTree* pTree;

    /// Root, group and processor rows since the last rebuild. Plain indexes: the model changes in no
    /// other way than by the rebuild, which replaces them all.
    QMap<QUuid, QModelIndex> mapIndex;
};
