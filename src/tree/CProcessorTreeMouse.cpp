// What CProcessorTree does with the mouse: drag and drop, hover and tips, and the shapes behind the rows.

#include "tree/CProcessorTree.h"

#include "interfaces/widgets/CToolTip.h"
#include "model/RowValue.h"
#include "nodes/EnNodeType.h"
#include "tree/CDragImage.h"
#include "tree/CRowPainter.h"
#include "tree/CSelectionAnchor.h"
#include "tree/CTreeKeys.h"
#include "tree/RowToolTip.h"
#include "tree/SDragPayload.h"
#include "tree/SDropTarget.h"
#include "tree/SScrollBands.h"
#include "tree/commands/GroupCommands.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int nDragDistance = 7; // pixels

bool IsNode(int nType)
{
    return nType == NodeAll || nType == NodeGroup || nType == NodeProcessor;
}

bool IsDragDistance(const QPoint& ptMoved)
{
    return qAbs(ptMoved.x()) >= nDragDistance || qAbs(ptMoved.y()) >= nDragDistance;
}

} // namespace

void CProcessorTree::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid()) {
        event->accept();
        return;
    }
    if (RowValue::NodeType(index) == NodeInfo) {
        return;
    }
    PressRow(event, index);
    if (!(event->buttons() & Qt::LeftButton)) {
        return;
    }
    if (IsOnSelection(event->pos())) {
        bDragArmed = true;
        ptPress = event->pos();
    }
    viewport()->update();
}

// Without its scrolling, with which the base class moves a half-visible row into sight half a second later:
// a drag may be on its way by then, and its drop would hit another row.
void CProcessorTree::PressRow(QMouseEvent* pEvent, const QModelIndex& index)
{
    QMetaObject::Connection start;
    if (selectionCommand(index, pEvent).testFlag(QItemSelectionModel::Current)) {
        pAnchor->PrepareRange(index);
    } else { // the base class takes no press on the mark that folds a row
        const auto startHere = [this, key = SRowKey::Of(index)] { pAnchor->StartAt(key); };
        start = connect(this, &QAbstractItemView::pressed, this, startHere);
    }
    setAutoScroll(false);
    QTreeView::mousePressEvent(pEvent);
    setAutoScroll(true);
    disconnect(start);
}

bool CProcessorTree::IsOnSelection(const QPoint& pos) const
{
    const QModelIndexList listSelected = selectedIndexes();
    return std::any_of(listSelected.cbegin(), listSelected.cend(),
                       [this, &pos](const QModelIndex& index) { return visualRect(index).contains(pos); });
}

// Never the base class's: there is neither a rubber band nor selection by sweeping.
void CProcessorTree::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<CProcessorTree> pSelf(this);
    if ((event->buttons() & Qt::LeftButton) && bDragArmed && IsDragDistance(event->pos() - ptPress)) {
        StartDrag(event->pos());
    }
    if (pSelf) {
        UpdateHover(event);
    }
}

void CProcessorTree::mouseReleaseEvent(QMouseEvent* event)
{
    bDragArmed = false;
    if (pDrag) {
        pDrag->setPixmap(QPixmap());
    }
    if (indexAt(event->pos()).isValid()) {
        QTreeView::mouseReleaseEvent(event);
    } else {
        event->accept();
    }
}

void CProcessorTree::StartDrag(const QPoint& pos)
{
    const QModelIndexList listSelected = selectedIndexes();
    if (listSelected.isEmpty()) {
        return;
    }
    pDrag = new QDrag(this);
    const SDragPayload payload = SDragPayload::ForRows(listSelected);
    if (payload.bAllow) {
        CDragImage image(*this, listSelected, pos);
        pDrag->setPixmap(image.TakePixmap());
        pDrag->setHotSpot(image.GetHotSpot());
    }
    pDrag->setMimeData(payload.ToMime());
    RunDrag();
}

void CProcessorTree::RunDrag()
{
    const QPointer<CProcessorTree> pSelf(this);
    bDragging = true;
    pScrollTimer->start();
    pDrag->exec(Qt::MoveAction);
    if (pSelf) {
        bDragArmed = false;
        bDragging = false;
        viewport()->update();
    }
}

void CProcessorTree::dragEnterEvent(QDragEnterEvent* event)
{
    if (SDragPayload::IsIn(event->mimeData())) {
        event->setAccepted(SDragPayload::FromMime(event->mimeData()).bAllow);
    } else {
        event->ignore();
    }
}

void CProcessorTree::dragMoveEvent(QDragMoveEvent* event)
{
    if (!SDragPayload::IsIn(event->mimeData())) {
        event->ignore();
        return;
    }
    if (!SDragPayload::FromMime(event->mimeData()).bAllow) {
        return;
    }
    event->setDropAction(Qt::MoveAction);
    UpdateHover(nullptr);
    const SScrollBands bands(size(), event->pos());
    bScrollUp = bands.bUp;
    bScrollDown = bands.bDown;
    event->accept();
}

// Checks the view's own bar, which this tree keeps hidden, and not the overlay bar: the contract with the host
// relies on it.
void CProcessorTree::ScrollWhileDragging()
{
    QScrollBar* const pBar = verticalScrollBar();
    if (!bDragging || !(bScrollUp || bScrollDown) || !pBar->isVisible()) {
        return;
    }
    pBar->setValue(pBar->value() + (bScrollUp ? -1 : 1));
    viewport()->update();
}

void CProcessorTree::wheelEvent(QWheelEvent* event)
{
    if (bDragging) {
        event->accept();
    } else {
        QAbstractScrollArea::wheelEvent(event);
    }
}

void CProcessorTree::dropEvent(QDropEvent* event)
{
    pScrollTimer->stop();
    setCursor(QCursor(Qt::ArrowCursor));
    event->setDropAction(Qt::MoveAction);
    if (pDrag) { // null for a drag that another tree has started
        pDrag->setPixmap(QPixmap());
    }
    if (!SDragPayload::IsIn(event->mimeData()) || !SDragPayload::FromMime(event->mimeData()).bAllow) {
        return;
    }
    const SDropTarget target = SDropTarget::ForRow(indexAt(event->pos()));
    if (target.indexGroup.isValid()) {
        expand(target.indexGroup);
    }
    if (target.bValid) {
        GroupCommands::MoveToGroup(selectedIndexes(), target.idGroup);
    }
    event->accept();
}

QPoint CProcessorTree::GetMousePosition() const
{
    return mapFromGlobal(QCursor::pos()) - contentsRect().topLeft();
}

// Without an event, as while rows move under a mouse that rests, the position is the cursor's.
void CProcessorTree::UpdateHover(QMouseEvent* pEvent)
{
    const QModelIndex index = indexAt(pEvent ? pEvent->pos() : GetMousePosition());
    bHover = index.isValid() && IsNode(RowValue::NodeType(index));
    indexHover = bHover ? index : QModelIndex();
    viewport()->update();
}

void CProcessorTree::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    indexHover = QModelIndex();
    bHover = false;
    viewport()->update();
}

void CProcessorTree::verticalScrollbarValueChanged(int value)
{
    UpdateHover(nullptr);
    QTreeView::verticalScrollbarValueChanged(value);
}

// A tip comes when the toolkit asks for it; one that is up follows the mouse.
bool CProcessorTree::event(QEvent* event)
{
    if (event->type() == QEvent::HoverMove && CToolTip::IsVisible()) {
        UpdateToolTip(true);
    } else if (event->type() == QEvent::ToolTip) {
        UpdateToolTip(false);
    } else if (event->type() == QEvent::KeyRelease) {
        pKeys->NoteRelease(static_cast<QKeyEvent*>(event));
    }
    return QTreeView::event(event);
}

void CProcessorTree::UpdateToolTip(bool bDelay)
{
    const QPoint pos = GetMousePosition();
    RowToolTip::Show(indexAt(pos), pos, bDelay);
}

void CProcessorTree::drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const
{
    if (!index.isValid() || !index.internalPointer()) {
        return;
    }
    painter->save();
    const int nType = RowValue::NodeType(index);
    if (IsNode(nType)) {
        DrawNodeShape(painter, options.rect, index, nType);
    } else if (nType == NodeInfo) {
        DrawInfoShape(painter, options.rect, index.parent());
    }
    painter->restore();
    QTreeView::drawRow(painter, options, index);
}

void CProcessorTree::DrawNodeShape(QPainter* pPainter, const QRect& rcRow, const QModelIndex& index, int nType) const
{
    const EnRowMark mark = RowMark::ForRow(nType, selectionModel()->isSelected(index), IsHot(index), bDragging);
    if (mark == EnRowMark::Hovered || mark == EnRowMark::DropFrame) {
        indexHover = index;
    }
    if (mark != EnRowMark::None) {
        CRowPainter(*pPainter).PaintNode(rcRow, mark);
    }
}

// The card of a processor that is neither selected nor hovered is invisible.
void CProcessorTree::DrawInfoShape(QPainter* pPainter, const QRect& rcRow, const QModelIndex& indexProcessor) const
{
    if (selectionModel()->isSelected(indexProcessor)) {
        CRowPainter(*pPainter).PaintCard(rcRow, CRowPainter::EnCard::Selected);
    } else if (bHover && indexHover.isValid() && indexHover == indexProcessor) {
        CRowPainter(*pPainter).PaintCard(rcRow, CRowPainter::EnCard::Hovered);
    }
}

// A row is hovered by the base class's own rule: by its position, and only where the style decorates whole rows.
bool CProcessorTree::IsHot(const QModelIndex& index) const
{
    return bHover && indexHover.isValid() && indexHover.row() == index.row() && indexHover.parent() == index.parent()
        && selectionBehavior() == SelectRows && viewOptions().showDecorationSelected;
}
