#pragma once

#include "nodes/SProcessorAllNode.h"

#include <vector>

/// All that the panel reads for its rows, at about one time. Arrays have the Discovered pane first.
struct SReading
{
    static constexpr int nPanes = 2;

    SProcessorAllNode root[nPanes];
    std::vector<QUuid> vecSelected[nPanes];
    bool bSimulator = false;
    bool bListLocked = false;
    bool bRefreshBlocked = false;
    bool bChiefMode = false;
    QString strProject;

    const SProcessorAllNode& GetCurrent() const
    {
        return root[bSimulator];
    }
};
