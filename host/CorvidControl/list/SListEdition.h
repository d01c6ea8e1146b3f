#pragma once

#include "nodes/SProcessorAllNode.h"

/// The list at one moment.
struct SListEdition
{
    SProcessorAllNode node;
    quint64 nEdit = 0; ///< how many commands and found nodes had changed it; what devices report does not count
};
