#pragma once

#include <QDrag>
#include <QMap>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeView>
#include <QUuid>

#include <memory>
#include <vector>

class CProcessorTreeDelegate;
class CProcessorTreeModel;
class CRenameWatch;
class CScrollBar;
class CSelectionAnchor;
class CTreeKeys;
struct SProcessorGroupNode;

/// The tree of one pane: shows the nodes of the store and turns the user's gestures into commands of
/// the control library. No gesture changes a row; rows change when the store has changed and
/// RefreshTree() is called. GUI thread only.
///
/// Everything here works on the store's current pane, so the owner calls the operations below on the
/// tree of that pane only.
class CProcessorTree : public QTreeView
{
    Q_OBJECT

public:
    /// bDiscoveredPane: true Discovered, false Simulator.
    CProcessorTree(QWidget* parent, bool bDiscoveredPane);
    ~CProcessorTree() override;

    /// Builds all rows anew from the store, expanded and selected as the store says. Nothing of it is
    /// reported to the library, but for a pane without a recorded selection, which gets its root. The filter
    /// is gone afterwards. The current row and the start of a Shift range live on by their ids. An open
    /// editor is closed, its text is dropped, and nobody has the keyboard focus then: the keys that were
    /// meant for the name reach nothing.
    void RefreshTree();

    /// Selects the rows that the store names. Outside of RefreshTree() each row that it selects is
    /// reported, with the rows selected before it. The current row stays if it is among them.
    void RestoreSelection();

    /// Brings a single selected processor from the store to the rows, without a report.
    void UpdateCurrentNode();

    /// Hides the rows that do not match; an empty text shows all.
    void SetSearchText(const QString& strText);

    /// Command of the host's menu bar. Only 18, select all, with a true value and while the tree has the
    /// focus.
    void DealMenuBar(int nId, QVariant value);

    /// Deletes what the store names as selected; see DeleteCommand::Run().
    void DeleteNode(bool bAsk);

protected slots:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void verticalScrollbarValueChanged(int value) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const override;

    /// Runs a command of the menu; nAction is an EnTreeAction, any other number does nothing.
    void DealAction(int nAction);

    /// The node to select when the selected rows are about to go: the one just above the first of them,
    /// null for the root.
    QUuid GetNodeAboveSelection();

private:
    void InitWidget();
    void InitView();
    void InitScrollBars();
    void SetConnection();
    QString GetActionText(int nAction);
    void UpdateText();
    void UpdateScrollBars();

    void DealSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void SelectStoredNodes();
    void SelectNodes(const std::vector<QUuid>& vecId);
    void SelectRowQuietly(const QModelIndex& index);

    friend class CTreeKeys; // for selectionCommand(), state(), selectedIndexes() and the base's keyPressEvent()

    void Rename();
    void DropEditor();
    void Group();
    void Ungroup();
    void MoveToGroup(const SProcessorGroupNode& group);

    void PressRow(QMouseEvent* pEvent, const QModelIndex& index);
    bool IsOnSelection(const QPoint& pos) const;
    void StartDrag(const QPoint& pos);
    void RunDrag();
    void ScrollWhileDragging();

    QPoint GetMousePosition() const;
    void UpdateHover(QMouseEvent* pEvent);
    void UpdateToolTip(bool bDelay);
    bool IsHot(const QModelIndex& index) const;
    void DrawNodeShape(QPainter* pPainter, const QRect& rcRow, const QModelIndex& index, int nType) const;
    void DrawInfoShape(QPainter* pPainter, const QRect& rcRow, const QModelIndex& indexProcessor) const;

    CProcessorTreeModel* pModel = nullptr;
    CProcessorTreeDelegate* pDelegate = nullptr;
    CScrollBar* pHorizontalBar = nullptr; ///< laid over the view, which keeps its own bars hidden
    CScrollBar* pVerticalBar = nullptr;
    mutable QPersistentModelIndex indexHover; ///< row under the mouse; painting the row sets it again
    QMap<int, QAction*> mapAction;            ///< by EnTreeAction
    bool bDiscovered = false;
    bool bHover = false; ///< indexHover is to be shown
    QPoint ptPress;      ///< of the press that may start a drag
    bool bDragArmed = false;
    bool bDragging = false;
    QPointer<QDrag> pDrag;
    bool bRebuilding = false;        ///< RefreshTree() runs: selection changes are nobody's doing
    bool bSuppressSelection = false; ///< a rename or a grouping runs: selection changes are not reported
    QTimer* pScrollTimer = nullptr;
    bool bScrollUp = false;
    bool bScrollDown = false;
    std::unique_ptr<CSelectionAnchor> pAnchor;
    std::unique_ptr<CTreeKeys> pKeys;
    std::unique_ptr<CRenameWatch> pRenameWatch;
};
