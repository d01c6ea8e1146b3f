#pragma once

#include <QString>

/// The commands of the tree's context menu.
enum EnTreeAction
{
    ActionRename = 0,
    ActionDelete = 1,
    ActionGroup = 2,
    ActionUngroup = 3,
    ActionMoveToGroup = 4, ///< carries the sub-menu of groups; does nothing itself
    ActionRemoveFromGroup = 5,
};

/// Text of a command in the language of the application; empty for a number that is no EnTreeAction.
QString TreeActionText(int nAction);
