#pragma once

#include <QMap>
#include <QUuid>

/// What one deletion does. A plain value: the job that carries it out owns its copy. A group and a member of it
/// may both be in it.
struct SDeletePlan
{
    QMap<QUuid, bool> mapNode;    ///< the nodes, in the order of their deletion; true for a group
    bool bWithProcessors = false; ///< groups go with their processors
    QUuid idNext;                 ///< to be selected afterwards; null for the root
};
