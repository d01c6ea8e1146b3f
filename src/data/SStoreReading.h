#pragma once

#include "nodes/SProcessorAllNode.h"

#include <vector>

/// One complete reading of the control library, taken without any lock.
struct SStoreReading
{
    /// Asks the control library for everything but the current pane, always in the same order. May
    /// take as long as the library takes. Worker thread.
    static SStoreReading Take();

    SProcessorAllNode nodeDiscovered;
    SProcessorAllNode nodeSimulator;
    std::vector<QUuid> vecSelectedDiscovered;
    std::vector<QUuid> vecSelectedSimulator;
    bool bListLocked = false;
    bool bRefreshEnabled = false;
    QString strProjectName;
    bool bChiefMode = false;
};
