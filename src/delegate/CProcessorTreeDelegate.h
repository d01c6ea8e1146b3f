#pragma once

#include <QModelIndex>
#include <QString>
#include <QStyledItemDelegate>

class QLineEdit;

/// Paints the rows of a tree and edits the names of groups and processors in place. The model provides
/// only the kind and the id of a row; everything shown is read from the store at each paint. GUI thread.
///
/// It never changes a name: a new one goes to the control library and comes back with the next
/// refresh or not at all. There is no message when it is refused.
class CProcessorTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Registers SPrcNodeItem.
    explicit CProcessorTreeDelegate(QObject* parent);
    ~CProcessorTreeDelegate() override;

    /// Return, Enter and a loss of the focus commit a name and close its editor. Escape, Tab and all
    /// other keys get no special treatment.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Writes RoleNodeItem and RoleToolTip into the item, so an item may announce a change while its row
    /// is painted; a value that is there already announces nothing.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Null for rows that have no name to edit.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Fills the editor with the stored name, once; a further call keeps what the user has typed.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

    /// Sends the name to the control library, an unchanged one too; an empty one is dropped.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// Fixes place and size of the editor by EditorGeometry; does nothing for a row without an editor.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Shortened in its middle to nWidth pixels; the index isn't used.
    QString GetElidedText(const QString& strText, int nWidth, const QFont& font, const QModelIndex& index) const;

private slots:
    /// Puts the last valid text back when a name gets too long.
    void DealTextChange(QLineEdit* pEditor, QModelIndex index);

    /// Commits the sender's text. Does not close it, despite the name: the event filter or the view does.
    void commitAndCloseEditor();

private:
    void PaintGroup(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index, bool bAll) const;
    void PaintProcessor(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintInfo(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    void RestrictInput(QLineEdit* pEditor) const;
    void SetConnection(QLineEdit* pEditor, const QModelIndex& index) const;

    /// The last text of the open editor within the limit. One for all editors: only one is open at a
    /// time.
    mutable QString strValidText;
};
