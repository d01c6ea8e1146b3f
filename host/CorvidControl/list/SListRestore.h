#pragma once

#include "CorvidControl/list/PaneMerge.h"
#include "CorvidControl/list/SListEdition.h"

/// A restore on its way.
struct SListRestore
{
    SPaneMerge discovered;
    SPaneMerge simulators;
    SListEdition before; ///< the Discovered list that was replaced
};
