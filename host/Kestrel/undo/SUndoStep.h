#pragma once

#include "controlhost/SListEdit.h"

#include <QList>
#include <QMetaType>

/// One step of undo: what the user takes for one thing, of one command or of many.
struct SUndoStep
{
    /// The list before and after a run of commands with nothing else between them.
    struct SPair
    {
        SListSnapshot before;
        SListSnapshot after;
    };

    EnListCommand command = CommandAddGroup; ///< the first
    bool bMembers = false;                   ///< a new group was filled at once
    bool bUngroupOnly = true;                ///< of a deletion: no processor was asked to go
    QString strName;                         ///< of the first command
    int nCommands = 0;
    int nNodes = 0;        ///< the sum over the commands, without a new group's own
    QList<SPair> listPair; ///< oldest first, at least one
};

Q_DECLARE_METATYPE(SUndoStep)
