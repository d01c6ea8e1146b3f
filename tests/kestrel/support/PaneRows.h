#pragma once

#include <QString>
#include <QUuid>

#include <vector>

class QTreeView;
struct SProcessorAllNode;

/// The rows of a pane that are not hidden, with what they say: "  Wall 1, offline [+]*" with "[+]" for an open and "*" for a
/// selected row.
namespace PaneRows {

/// As a screen reader reads the rows, which must listen.
QString GetShown(const QTreeView* pTree);

/// As they would be if the panel showed this list and selection.
QString GetTruth(const SProcessorAllNode& node, const std::vector<QUuid>& vecSelected);

} // namespace PaneRows
