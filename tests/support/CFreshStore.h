#pragma once

#include "data/CProcessorTreeData.h"

#include <utility>

/// An untouched store that takes the place of the process's one while it lives. Must outlive the panel.
class CFreshStore : public CProcessorTreeData
{
public:
    CFreshStore() : pBefore(std::exchange(g_pProcessorTreeData, this)) { }
    ~CFreshStore()
    {
        g_pProcessorTreeData = pBefore;
    }
    Q_DISABLE_COPY(CFreshStore)

private:
    CProcessorTreeData* pBefore;
};
