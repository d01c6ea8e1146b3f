#pragma once

#include "controlhost/EnListCommand.h"
#include "controlhost/SListSnapshot.h"

#include <QMetaType>

/// One command of the user that has changed the list.
///
/// @since 0.2
struct SListEdit
{
    EnListCommand command = CommandAddGroup; ///< what the user has done

    /// For display: the name that the node had, for CommandRename the one that it has now, of a Chief's group the
    /// group's; the file; of a new processor its address. Empty for CommandUseRefused.
    QString strName;

    int nNodes = 1;       ///< that were added, deleted, moved, named; of a group that went its processors too; of a list all
    SListSnapshot before; ///< the list as it was
    SListSnapshot after;  ///< as it is now, or was before a later edit
    quint64 nJob = 0;     ///< the commands of one thread beside the application's share a number, no two threads do; 0: that one
};

Q_DECLARE_METATYPE(SListEdit)
