#include "tree/DeleteBlock.h"

#include "data/CProcessorTreeData.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <algorithm>

namespace {

// Both questions are asked for every id, on purpose.
bool IsActiveAndInUse(const QUuid& id)
{
    const bool bActive = g_pPrcListControl->IsNodeActive(id);
    const bool bInUse = g_pRuntimeControl->IsNodeInUse(id);
    return bActive && bInUse;
}

} // namespace

bool IsDeleteBlocked()
{
    const std::vector<QUuid> vecId = g_pRuntimeControl->GetSelectedProcessors();
    return std::any_of(vecId.cbegin(), vecId.cend(), IsActiveAndInUse) || g_pProcessorTreeData->IsListLocked();
}
