#pragma once

#include "nodes/SProcessorAllNode.h"

#include <vector>

/// One complete reading of the control library.
struct SStoreReading
{
    SProcessorAllNode nodeDiscovered;
    SProcessorAllNode nodeSimulator;
    std::vector<QUuid> vecSelectedDiscovered;
    std::vector<QUuid> vecSelectedSimulator;
    bool bListLocked = false;
    bool bRefreshEnabled = false;
    QString strProjectName;
    bool bChiefMode = false;
};
