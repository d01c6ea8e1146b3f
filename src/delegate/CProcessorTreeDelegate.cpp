#include "delegate/CProcessorTreeDelegate.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "delegate/EditorGeometry.h"
#include "delegate/NameRule.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "model/EnItemRole.h"
#include "model/RowValue.h"
#include "model/SPrcNodeItem.h"
#include "nodes/EnNodeType.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegExpValidator>

namespace {

bool EndsEditing(const QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const int nKey = static_cast<const QKeyEvent*>(event)->key();
    return nKey == Qt::Key_Return || nKey == Qt::Key_Enter;
}

} // namespace

CProcessorTreeDelegate::CProcessorTreeDelegate(QObject* parent) : QStyledItemDelegate(parent)
{
    RegisterPrcNodeItem();
}

CProcessorTreeDelegate::~CProcessorTreeDelegate() = default;

// Bypasses QStyledItemDelegate's filter: Tab, Backtab and Escape are not for the delegate.
bool CProcessorTreeDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* pEditor = qobject_cast<QLineEdit*>(watched);
    if (!pEditor || !EndsEditing(event)) {
        return QObject::eventFilter(watched, event); // NOLINT(bugprone-parent-virtual-call)
    }
    emit commitData(pEditor);
    emit closeEditor(pEditor, QAbstractItemDelegate::NoHint);
    return true;
}

void CProcessorTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    Q_ASSERT(GuiThread::IsCurrent());
    const int nType = RowValue::NodeType(index);
    if (nType == 0) {
        return;
    }
    painter->save();
    switch (nType) {
    case NodeAll:
        PaintGroup(painter, option, index, true);
        break;
    case NodeGroup:
        PaintGroup(painter, option, index, false);
        break;
    case NodeProcessor:
        PaintProcessor(painter, option, index);
        break;
    case NodeInfo:
        PaintInfo(painter, option, index);
        break;
    default:
        break;
    }
    painter->restore();
}

QWidget* CProcessorTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const int nType = RowValue::NodeType(index);
    if (nType != NodeGroup && nType != NodeProcessor) {
        return nullptr;
    }
    RowValue::Write(index, true, RoleFirstEdit);
    return new QLineEdit(parent);
}

void CProcessorTreeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* pEditor = qobject_cast<QLineEdit*>(editor);
    if (!pEditor) {
        return;
    }
    const QString strName = g_pProcessorTreeData->GetNodeName(RowValue::NodeId(index));
    // The view calls again when the row is painted for the first time. The same text set again would only end
    // the selection, and what is typed would follow the old name instead of replacing it.
    if (index.data(RoleFirstEdit).toBool() && pEditor->text() != strName) {
        pEditor->setText(strName);
    }
    pEditor->setFocus(Qt::OtherFocusReason);
    strValidText = pEditor->text();
    RestrictInput(pEditor);
    SetConnection(pEditor, index);
}

void CProcessorTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    Q_ASSERT(GuiThread::IsCurrent());
    const auto* pEditor = qobject_cast<QLineEdit*>(editor);
    if (!pEditor || pEditor->text().isEmpty()) {
        return;
    }
    const int nType = RowValue::NodeType(index);
    const QUuid id = RowValue::NodeId(index);
    if (nType == NodeGroup) {
        g_pPrcListControl->RenameGroup(id, pEditor->text());
    } else if (nType == NodeProcessor) {
        g_pPrcBasicControl->RenameProcessor(id, pEditor->text());
    }
}

void CProcessorTreeDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                  const QModelIndex& index) const
{
    const QRect rcEditor = EditorGeometry::EditorRect(RowValue::NodeType(index), option.rect);
    if (!editor || rcEditor.isNull()) {
        return;
    }
    editor->setGeometry(rcEditor);
    editor->setFixedSize(rcEditor.size());
    editor->resize(rcEditor.size());
}

void CProcessorTreeDelegate::DealTextChange(QLineEdit* pEditor, QModelIndex)
{
    if (!pEditor) {
        return;
    }
    const QString strText = pEditor->text();
    const int nPosition = pEditor->cursorPosition();
    if (NameRule::FitsLimit(strText)) {
        strValidText = strText;
        return;
    }
    pEditor->setText(strValidText);
    pEditor->setCursorPosition(NameRule::CursorAfterRefusal(nPosition, strText.length(), strValidText.length()));
}

void CProcessorTreeDelegate::commitAndCloseEditor()
{
    emit commitData(qobject_cast<QWidget*>(sender()));
}

// The view calls setEditorData again while the editor is open. A second validator and a second filter
// change nothing, and no menu is left to the right click: neither the editor's nor the tree's.
void CProcessorTreeDelegate::RestrictInput(QLineEdit* pEditor) const
{
    pEditor->setValidator(new QRegExpValidator(NameRule::Characters(), pEditor));
    pEditor->installEventFilter(const_cast<CProcessorTreeDelegate*>(this));
    pEditor->setContextMenuPolicy(Qt::PreventContextMenu);
}

// The index is kept persistent: a refresh may take the row away under the editor, which the view only
// deletes later.
void CProcessorTreeDelegate::SetConnection(QLineEdit* pEditor, const QModelIndex& index) const
{
    auto* pThis = const_cast<CProcessorTreeDelegate*>(this);
    connect(pEditor, &QLineEdit::editingFinished, pThis, &CProcessorTreeDelegate::commitAndCloseEditor);
    connect(pEditor, &QLineEdit::textChanged, pThis, [pThis, pEditor, idxRow = QPersistentModelIndex(index)] {
        pThis->DealTextChange(pEditor, idxRow);
        RowValue::Write(idxRow, false, RoleFirstEdit);
    });
}
