#pragma once

#include <functional>

class QUuid;
class QWidget;

/// The deletion of what the user has selected.
namespace DeleteCommand {

/// The node to select when the selected rows are about to go; null for the root.
using FnNextNode = std::function<QUuid()>;

/// Deletes what the store names as selected in the current pane. Does nothing while deletion is blocked, for
/// the root alone, and where the user says no. bAsk false asks nothing and takes groups with their processors.
///
/// GUI thread; blocks only as long as a question is open, over pParent, which may die meanwhile: nothing is
/// deleted then. fnNextNode is called only if something is deleted: once, after the library has been made busy and
/// before this returns. The
/// deletion itself goes on, on a thread of its own.
void Run(QWidget* pParent, bool bAsk, const FnNextNode& fnNextNode);

} // namespace DeleteCommand
