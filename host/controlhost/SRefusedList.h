#pragma once

#include "nodes/SProcessorAllNode.h"

#include <QStringList>

/// What can be read of the list that was refused at the start.
///
/// @since 0.2
struct SRefusedList
{
    QString strPath;        ///< the list's own place; empty when no list was refused, or when it was taken already
    bool bUsable = false;   ///< a list is there, whole or in parts; an empty one counts
    SProcessorAllNode node; ///< what UseRefusedList would make the list
    int nGroups = 0;        ///< in node
    int nProcessors = 0;    ///< in node, members of groups included
    int nLost = 0;          ///< nodes that were seen and cannot be taken; what is cut off is not counted
    int nMended = 0;        ///< nodes that are taken with a name or a value other than in the file
    QStringList listFault;  ///< what is wrong, in English, one line each, in the order of the file; at most 200 lines
};
