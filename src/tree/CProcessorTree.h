#pragma once

#include <QDrag>
#include <QMap>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeView>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

class CProcessorTreeDelegate;
class CProcessorTreeModel;
class CRenameWatch;
class CRowReader;
class CScrollBar;
class CSelectionAnchor;
class CTreeKeys;
struct SProcessorGroupNode;

/// The tree of one pane: shows the nodes of the store and turns the user's gestures into commands of
/// the control library. No gesture changes a row; rows change when the store has changed and
/// RefreshTree() is called. GUI thread only.
///
/// Everything here works on the store's current pane, so the owner calls the operations below on the
/// tree of that pane only. The host may delete the tree while a menu, a dialog or a drag of it is open.
class CProcessorTree : public QTreeView
{
    Q_OBJECT

public:
    /// bDiscoveredPane: true Discovered, false Simulator. Shows the store as it stands; nothing is selected
    /// or unfolded until the first RefreshTree().
    CProcessorTree(QWidget* parent, bool bDiscoveredPane);
    ~CProcessorTree() override;

    /// Builds all rows anew from the store, with its expansion and selection. Nothing of it is
    /// reported to the library, but for a pane without a recorded selection, which gets its root. The filter
    /// is gone afterwards. The current row and the start of a Shift range live on by their ids. An open
    /// editor is closed, its text is dropped, and nobody has the keyboard focus then: the keys that were
    /// meant for the name reach nothing.
    void RefreshTree();

    /// Selects the rows that the store names. Outside of RefreshTree() each row that it selects is
    /// reported, with the rows selected before it. The current row stays if it is among them.
    void RestoreSelection();

    /// Brings a single selected processor from the store to the rows, without a report. A selected group,
    /// and more than one selected node, leave the rows alone.
    void UpdateCurrentNode();

    /// Hides the rows that do not match; an empty text shows all. Changes no selection.
    void SetSearchText(const QString& strText);

    /// Command of the host's menu bar. Only select all does anything, with a true value and while the tree
    /// has the focus.
    void DealMenuBar(int nId, QVariant value);

    /// Deletes what the store names as selected, with a question or, bAsk false, without; see DeleteCommand::Run().
    void DeleteNode(bool bAsk);

    void doItemsLayout() override;

    /// What the painting of a row leaves in its item shows nowhere: it asks for no second paint.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles = {}) override;

protected slots:
    /// Reports the selection, unless rows are being rebuilt, renamed or grouped: then nothing happens.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

    /// The row that has slid under a resting mouse becomes the hovered one.
    void verticalScrollbarValueChanged(int value) override;

    /// Ends a rename: its row is selected again, without a report; later selections are reported.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

protected:
    bool event(QEvent* event) override;

    /// Selects as the base class does, and arms a drag on a selected row. Beside the rows and on an information
    /// row a press changes nothing.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    /// Starts the drag that a press has armed, and returns when it is over. Nothing is selected by sweeping.
    void mouseMoveEvent(QMouseEvent* event) override;

    /// Scrolls, but not during a drag.
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// Opens the menu over a selected group or processor, and returns when its command has run.
    void contextMenuEvent(QContextMenuEvent* event) override;

    /// A drag of rows is taken whichever tree has started it; its drop moves what is selected in this one.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// The base class's, which asks the style anew: during a layout and a paint, which want them for each row, those of its
    /// begin.
    QStyleOptionViewItem viewOptions() const override;

    /// Paints the shape behind the row, then the row.
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const override;

    /// Runs a command of the menu; nAction is an EnTreeAction, any other number does nothing.
    void DealAction(int nAction);

    /// The node to select when the selected rows are about to go: the one just above the first of them,
    /// null for the root.
    QUuid GetNodeAboveSelection();

private:
    friend class CTreeKeys; // for selectionCommand(), state(), selectedIndexes() and the base's keyPressEvent()

    void InitWidget();
    void InitView();
    void InitScrollBars();
    void SetConnection();
    QString GetActionText(int nAction);
    void UpdateText();

    /// Lays the overlay bars out, at a resize and at a show only: a change of range moves none.
    void UpdateScrollBars();

    /// Sends the whole selection, not the change, to the store, the library and the tool bar. An empty one is
    /// not sent.
    void DealSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void SelectStoredNodes();
    void SelectNodes(const std::vector<QUuid>& vecId);
    void SelectRowQuietly(const QModelIndex& index); ///< alone, without a report

    /// Opens the editor of the one selected row. No selection is reported until an editor has closed.
    void Rename();

    /// Closes the editor of a rename, without its text and without a report.
    void DropEditor();

    void Group();
    void Ungroup();

    /// Also unfolds the group, which the library hears at once.
    void MoveToGroup(const SProcessorGroupNode& group);

    /// The base class's press, with the start of a Shift range kept and without its delayed scrolling.
    void PressRow(QMouseEvent* pEvent, const QModelIndex& index);
    bool IsOnSelection(const QPoint& pos) const;
    void StartDrag(const QPoint& pos);
    void RunDrag();
    void ScrollWhileDragging(); ///< one step of one unit per tick of pScrollTimer

    QPoint GetMousePosition() const; ///< the cursor's, in the viewport

    /// The row under the mouse becomes the hovered one; without an event the cursor's position counts.
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
    bool bDragging = false;          ///< a drag that this tree has started runs
    QPointer<QDrag> pDrag;           ///< of that drag; Qt deletes it
    bool bPainting = false;          ///< paintEvent() runs: what changes in the model is of its own making
    bool bRebuilding = false;        ///< RefreshTree() runs: selection changes are nobody's doing
    bool bSuppressSelection = false; ///< a rename or a grouping runs: selection changes are not reported
    QTimer* pScrollTimer = nullptr;
    bool bScrollUp = false; ///< the drag is in the upper band
    bool bScrollDown = false;
    std::unique_ptr<CSelectionAnchor> pAnchor;
    std::unique_ptr<CTreeKeys> pKeys;
    std::unique_ptr<CRenameWatch> pRenameWatch;      ///< ends the suppression when the editor goes unclosed
    CRowReader* pReader = nullptr;                   ///< what screen readers say of the rows
    std::optional<QStyleOptionViewItem> optionsKept; ///< those of the layout or the paint that runs
};
