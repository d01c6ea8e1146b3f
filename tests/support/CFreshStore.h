#pragma once

#include "data/CProcessorTreeData.h"

#include <utility>

/// Puts an untouched store in the place of the process's one while it lives. Must outlive the panel.
class CFreshStore
{
public:
    CFreshStore() : pBefore(std::exchange(g_pProcessorTreeData, &store)) { }
    ~CFreshStore()
    {
        g_pProcessorTreeData = pBefore;
    }
    Q_DISABLE_COPY(CFreshStore)

private:
    CProcessorTreeData store;
    CProcessorTreeData* pBefore;
};
