#pragma once

#include "CorvidControl/list/EnOrigin.h"
#include "controlhost/EnListCommand.h"

#include <QString>

/// A command as the log and the application name it.
struct SListCommand
{
    EnListCommand command = CommandAddGroup;
    QString strText; ///< for the log: "Renaming to \"Stage\""
    QString strName; ///< for the application, see SListEdit
    EnOrigin origin = OriginUser;
};
