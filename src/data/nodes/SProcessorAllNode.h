#pragma once

#include "nodes/SProcessorGroupNode.h"

/// The root of a pane. Two roots are compared field by field where they are read; there is no operator.
struct SProcessorAllNode final : SNode
{
    SProcessorAllNode();

    QList<SProcessorGroupNode> listGroup; ///< groups, in the order shown, which stays [C-node-3 required]
    QList<SProcessorNode> listProcessor;  ///< processors in no group, shown after all groups
};
