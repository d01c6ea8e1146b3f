#include "tree/TreeAction.h"

#include <QCoreApplication>

QString TreeAction::GetText(int nAction)
{
    switch (nAction) {
    case ActionRename:
        return QCoreApplication::translate("CProcessorTree", "Rename");
    case ActionDelete:
        return QCoreApplication::translate("CProcessorTree", "Delete");
    case ActionGroup:
        return QCoreApplication::translate("CProcessorTree", "Group");
    case ActionUngroup:
        return QCoreApplication::translate("CProcessorTree", "Ungroup");
    case ActionMoveToGroup:
        return QCoreApplication::translate("CProcessorTree", "Move to group");
    case ActionRemoveFromGroup:
        return QCoreApplication::translate("CProcessorTree", "Remove from group");
    default:
        return QString();
    }
}
