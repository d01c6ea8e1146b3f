#pragma once

#include <QList>
#include <QUuid>

class QAbstractButton;
class QAction;
class QLineEdit;
class QModelIndex;
class QObject;
class QStackedLayout;
class QString;
class QTreeView;
class QWidget;
struct SControlPointers;

/// Finds the parts of the panel by their names, and uses them as mouse and keyboard do. The panel is a
/// library of its own: only names, properties and rows' roles are known of it. All GUI thread.
namespace PanelAccess {

/// The tree of the current pane, or null.
QTreeView* FindCurrentTree(QWidget* pPanel);

/// Those of both panes, and what shows one of them; empty and null in a widget that is no panel.
QList<QTreeView*> FindTrees(QWidget* pPanel);
QStackedLayout* FindPanes(QWidget* pPanel);

/// EnNodeType of a row; 0 for what is no row of the panel.
int GetNodeType(const QModelIndex& index);

/// Null for the root.
QUuid GetNodeId(const QModelIndex& index);

/// Whether it is the editor of a row of the panel.
bool IsRowEditor(const QObject* pObject);

/// The row of a group or processor of that name in the current pane of the library; invalid when there is none.
QModelIndex FindRow(const SControlPointers& pointers, const QTreeView* pTree, const QString& strName);

/// By the English text, which szContext translates.
QAction* FindAction(QWidget* pPanel, const char* szContext, const char* szText);

/// By the tool tip, in English or in the present language.
QAbstractButton* FindButton(QWidget* pPanel, const QString& strToolTip);

QAbstractButton* FindTab(QWidget* pPanel, bool bSimulator);
QLineEdit* FindSearchEdit(QWidget* pPanel);

/// Ends an open editor of a row as a click on the tree does: what was typed counts.
void EndEdit(QWidget* pPanel);

/// Replaces the text, key by key.
void TypeText(QLineEdit* pEdit, const QString& strText);

/// The panel and those of its parts that have copied the sheet strOld from their parent get strNew in its place.
void ReplaceSheet(QWidget* pPanel, const QString& strOld, const QString& strNew);

/// Scrolls to the row and clicks it with the left button.
void ClickRow(QTreeView* pTree, const QModelIndex& index, Qt::KeyboardModifiers modifiers);

} // namespace PanelAccess
