#pragma once

#include <QString>

class QTreeView;
class QWidget;

/// A pane as text, a row each, members indented, "*" at the selected ones; what is folded counts.
namespace PaneText {

/// The tree of a pane of the panel.
QTreeView* FindTree(QWidget* pPanel, bool bSimulator);

/// As a screen reader reads the rows, which must listen.
QString GetShown(const QTreeView* pTree);

/// As the library has them now.
QString GetTruth(bool bSimulator);

} // namespace PaneText
