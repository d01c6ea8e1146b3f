#pragma once

#include "controlhost/EnListCommand.h"
#include "controlhost/SListSnapshot.h"

#include <QMetaType>

/// One command of the user that has changed the list.
struct SListEdit
{
    EnListCommand command = CommandAddGroup; ///< none that is in refusals only

    /// For display: the name that the node had, for CommandRename the one that it has now; of a Chief's group the
    /// group's, of a new processor its address, of simulators the first's name, of a list its file. Empty for CommandUseRefused.
    QString strName;

    int nNodes = 1;       ///< that were added, deleted, moved, named; of a group that went its processors too; of a list all
    SListSnapshot before; ///< the list just before it
    SListSnapshot after;  ///< and just behind it
};

Q_DECLARE_METATYPE(SListEdit)
