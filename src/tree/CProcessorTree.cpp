#include "tree/CProcessorTree.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "delegate/CProcessorTreeDelegate.h"
#include "delegate/RowLook.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CScrollBar.h"
#include "model/CProcessorTreeModel.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"
#include "tree/CRenameWatch.h"
#include "tree/CRowReader.h"
#include "tree/CSelectionAnchor.h"
#include "tree/CTreeKeys.h"
#include "tree/NeighbourNode.h"
#include "tree/NodeSelection.h"
#include "tree/SOverlayBars.h"
#include "tree/TreeAction.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTimer>

namespace {

constexpr int nScrollInterval = 500; // ms
constexpr int nMenuSelectAll = 18;   // id in the host's menu bar

} // namespace

CProcessorTree::CProcessorTree(QWidget* parent, bool bDiscoveredPane) : QTreeView(parent)
{
    Q_ASSERT(GuiThread::IsCurrent());
    setMouseTracking(true);
    bDiscovered = bDiscoveredPane;
    InitWidget();
    SetConnection();
    pScrollTimer = new QTimer(this);
    pScrollTimer->setInterval(nScrollInterval);
    connect(pScrollTimer, &QTimer::timeout, this, &CProcessorTree::ScrollWhileDragging);
}

CProcessorTree::~CProcessorTree()
{
    pRenameWatch->Stop(); // its editor dies with the other children
    if (bDragging) {
        QDrag::cancel(); // exec() is still running further up the stack
    }
    delete pDrag;
}

void CProcessorTree::InitWidget()
{
    pModel = new CProcessorTreeModel(this);
    pDelegate = new CProcessorTreeDelegate(this);
    pAnchor = std::make_unique<CSelectionAnchor>(*this, *pModel);
    for (int nAction = ActionRename; nAction <= ActionRemoveFromGroup; ++nAction) {
        auto* pAction = new QAction(this);
        pAction->setText(GetActionText(nAction));
        mapAction.insert(nAction, pAction);
    }
    pKeys = std::make_unique<CTreeKeys>(*this, *pModel, *pAnchor, *mapAction[ActionDelete]);
    pRenameWatch = std::make_unique<CRenameWatch>([this] { bSuppressSelection = false; });
    setObjectName(QStringLiteral("ProcessorTree"));
    setItemDelegate(pDelegate);
    setModel(pModel);
    header()->hide();
    InitView();
    InitScrollBars();
    pReader = new CRowReader(*this, *pModel, bDiscovered);
}

void CProcessorTree::InitView()
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    setIndentation(RowLook::nIndentation);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    setExpandsOnDoubleClick(true);
    setEditTriggers(NoEditTriggers);
    setAcceptDrops(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    // A style sheet without a hover rule switches no hover events on; tips and the text of rows need them.
    setAttribute(Qt::WA_Hover);
    viewport()->setAttribute(Qt::WA_Hover);
}

void CProcessorTree::InitScrollBars()
{
    pHorizontalBar = new CScrollBar(Qt::Horizontal, this);
    pHorizontalBar->ConnectSystem(horizontalScrollBar());
    pHorizontalBar->hide();
    pVerticalBar = new CScrollBar(Qt::Vertical, this);
    pVerticalBar->ConnectSystem(verticalScrollBar());
    pVerticalBar->hide();
}

void CProcessorTree::SetConnection()
{
    connect(this, &QTreeView::expanded, pModel, &CProcessorTreeModel::DealExpanded);
    connect(this, &QTreeView::collapsed, pModel, &CProcessorTreeModel::DealCollapsed);
    for (auto it = mapAction.cbegin(); it != mapAction.cend(); ++it) {
        connect(it.value(), &QAction::triggered, this, [this, nAction = it.key()] { DealAction(nAction); });
    }
}

QString CProcessorTree::GetActionText(int nAction)
{
    return TreeAction::GetText(nAction);
}

void CProcessorTree::UpdateText()
{
    for (auto it = mapAction.cbegin(); it != mapAction.cend(); ++it) {
        it.value()->setText(GetActionText(it.key()));
    }
    pReader->UpdateText();
}

void CProcessorTree::UpdateScrollBars()
{
    if (!pHorizontalBar || !pVerticalBar) {
        return;
    }
    if (!SOverlayBars::HasRoom(size())) {
        pHorizontalBar->setVisible(false);
        pVerticalBar->setVisible(false);
        return;
    }
    const SOverlayBars bars(size(), pHorizontalBar->height(), pVerticalBar->width());
    pHorizontalBar->setGeometry(bars.rcHorizontal);
    pVerticalBar->setGeometry(bars.rcVertical);
    pHorizontalBar->setVisible(horizontalScrollBar()->minimum() != horizontalScrollBar()->maximum());
    pVerticalBar->setVisible(verticalScrollBar()->minimum() != verticalScrollBar()->maximum());
}

void CProcessorTree::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    UpdateScrollBars();
}

void CProcessorTree::showEvent(QShowEvent* event)
{
    QTreeView::showEvent(event);
    UpdateScrollBars();
}

void CProcessorTree::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

// A rebuild takes the header's section to its default width and back. Told of it, the view would lay itself out and paint
// itself a second time, some moments later.
void CProcessorTree::doItemsLayout()
{
    const QSignalBlocker blocker(header());
    const QScopedValueRollback kept(optionsKept, std::make_optional(QTreeView::viewOptions()));
    QTreeView::doItemsLayout();
}

void CProcessorTree::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    if (!bPainting) {
        QTreeView::dataChanged(topLeft, bottomRight, roles);
    }
}

void CProcessorTree::paintEvent(QPaintEvent* event)
{
    const QScopedValueRollback painting(bPainting, true);
    const QScopedValueRollback kept(optionsKept, std::make_optional(QTreeView::viewOptions()));
    QTreeView::paintEvent(event);
}

QStyleOptionViewItem CProcessorTree::viewOptions() const
{
    return optionsKept ? *optionsKept : QTreeView::viewOptions();
}

void CProcessorTree::RefreshTree()
{
    Q_ASSERT(GuiThread::IsCurrent());
    const CSelectionAnchor::SPlace place = pAnchor->Note();
    DropEditor();
    bRebuilding = true;
    blockSignals(true);
    pModel->RebuildFromStore();
    SelectStoredNodes();
    pAnchor->Restore(place);
    bRebuilding = false;
    blockSignals(false);
    pReader->Write();
}

void CProcessorTree::SetSearchText(const QString& strText)
{
    Q_ASSERT(GuiThread::IsCurrent());
    pModel->SetSearchText(strText);
}

void CProcessorTree::DealMenuBar(int nId, QVariant value)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (nId == nMenuSelectAll && value.toBool() && hasFocus()) {
        selectAll();
    }
}

void CProcessorTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    if (bRebuilding || bSuppressSelection) {
        return;
    }
    DealSelectionChanged(selected, deselected);
    QTreeView::selectionChanged(selected, deselected);
}

void CProcessorTree::DealSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    Q_UNUSED(selected)
    Q_UNUSED(deselected)
    const QModelIndexList listSelected = selectedIndexes();
    if (listSelected.isEmpty()) {
        return;
    }
    const std::vector<QUuid> vecId = NodeSelection::GetIds(listSelected);
    g_pProcessorTreeData->SetSelectedNodes(vecId);
    g_pRuntimeControl->SetSelectedNodes(vecId);
    emit g_pProcessorTreeData->NotifyButton();
    if (!vecId.empty()) {
        update();
    }
}

void CProcessorTree::RestoreSelection()
{
    Q_ASSERT(GuiThread::IsCurrent());
    const CSelectionAnchor::SPlace place = pAnchor->Note();
    SelectStoredNodes();
    pAnchor->Restore(place);
    pReader->Follow();
}

// The ids are those of this tree's pane, their rows those of the current pane.
void CProcessorTree::SelectStoredNodes()
{
    selectionModel()->clear();
    SProcessorAllNode nodeAll;
    g_pProcessorTreeData->GetCurrentTree(nodeAll);
    const std::vector<QUuid> vecId = g_pProcessorTreeData->GetSelectedNodes(!bDiscovered);
    if (vecId.empty()) {
        selectionModel()->select(pModel->GetRootIndex(), QItemSelectionModel::Select);
        g_pRuntimeControl->SetSelectedNodes({ QUuid() });
        return;
    }
    SelectNodes(NodeSelection::GetKnownIds(vecId, nodeAll));
}

void CProcessorTree::SelectNodes(const std::vector<QUuid>& vecId)
{
    if (!bRebuilding) {
        for (const QUuid& id : vecId) { // looked up one by one: each report may reach a slot that rebuilds
            selectionModel()->select(pModel->GetIndexById(id), QItemSelectionModel::Select);
        }
        return;
    }
    QModelIndexList listRow;
    for (const QUuid& id : vecId) {
        listRow.append(pModel->GetIndexById(id));
    }
    // Nobody listens, so one call is enough: one per row takes quadratic time.
    selectionModel()->select(NodeSelection::GetRanges(listRow), QItemSelectionModel::Select);
}

void CProcessorTree::UpdateCurrentNode()
{
    Q_ASSERT(GuiThread::IsCurrent());
    const std::vector<QUuid> vecId = g_pProcessorTreeData->GetSelectedNodes();
    if (vecId.empty()) {
        SelectRowQuietly(pModel->GetRootIndex());
        return;
    }
    if (vecId.size() > 1) {
        return;
    }
    const QModelIndexList listSelected = selectedIndexes();
    if (listSelected.size() == 1 && RowValue::NodeId(listSelected.first()) == vecId.front()) {
        return;
    }
    const QModelIndex indexRow = NodeSelection::FindProcessor(pModel->GetRootIndex(), vecId.front());
    if (indexRow.isValid()) {
        SelectRowQuietly(indexRow);
        viewport()->update();
    }
}

void CProcessorTree::SelectRowQuietly(const QModelIndex& index)
{
    const QSignalBlocker blocker(selectionModel());
    clearSelection();
    selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QUuid CProcessorTree::GetNodeAboveSelection()
{
    const QModelIndex indexRoot = pModel->GetRootIndex();
    if (!indexRoot.isValid()) {
        return QUuid();
    }
    return RowValue::NodeId(NeighbourNode::AboveSelection(*this, indexRoot));
}
