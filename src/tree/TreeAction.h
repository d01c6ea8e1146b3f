#pragma once

class QString;

/// The commands of the tree's context menu. The numbers are those of CProcessorTree::DealAction().
enum EnTreeAction
{
    ActionRename = 0,
    ActionDelete = 1,
    ActionGroup = 2,
    ActionUngroup = 3,
    ActionMoveToGroup = 4, ///< carries the sub-menu of groups; does nothing itself
    ActionRemoveFromGroup = 5,
};

namespace TreeAction {

/// Text of a command in the language of the application; empty for a number that is no EnTreeAction.
QString GetText(int nAction);

} // namespace TreeAction
