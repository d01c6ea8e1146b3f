#pragma once

#include "tree/EnDeleteQuestion.h"

#include <QMap>
#include <QUuid>

#include <vector>

/// What one deletion does. A plain value: the job that carries it out owns its copy.
struct SDeletePlan
{
    /// Plans the deletion of vecId; null ids, which stand for the root, are left out. Asks the control
    /// library for the kind of each node.
    static SDeletePlan ForNodes(const std::vector<QUuid>& vecId);

    /// The question that the nodes call for, with the groups' sizes as the store knows them.
    EnDeleteQuestion GetQuestion() const;

    QMap<QUuid, bool> mapNode;    ///< the nodes; true for a group
    bool bWithProcessors = false; ///< groups go with their processors
    QUuid idNext;                 ///< to be selected afterwards; null for the root
};
