#pragma once

#include "CorvidControl/list/PaneMerge.h"

/// A restore on its way.
struct SListRestore
{
    QHash<QUuid, SProcessorNode> hashHeard; ///< what is known now of processors that may come back
    SPaneMerge discovered;
    SPaneMerge simulators;
};
