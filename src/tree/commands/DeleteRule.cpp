#include "tree/commands/DeleteRule.h"

#include "data/CProcessorTreeData.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <algorithm>

namespace {

// Not short-circuited: the contract with the library requires both calls for each id.
bool IsActiveAndInUse(const QUuid& id)
{
    const bool bActive = g_pPrcListControl->IsNodeActive(id);
    const bool bInUse = g_pRuntimeControl->IsNodeInUse(id);
    return bActive && bInUse;
}

} // namespace

bool DeleteRule::IsBlocked()
{
    const std::vector<QUuid> vecId = g_pRuntimeControl->GetSelectedProcessors();
    return std::any_of(vecId.cbegin(), vecId.cend(), IsActiveAndInUse) || g_pProcessorTreeData->IsListLocked();
}

EnDeleteQuestion DeleteRule::GetQuestion(bool bProcessor, bool bFilledGroup, bool bEmptyGroup)
{
    Q_ASSERT(bProcessor || bFilledGroup || bEmptyGroup);
    if (bProcessor) {
        return bFilledGroup || bEmptyGroup ? EnDeleteQuestion::GroupsAndProcessors : EnDeleteQuestion::Processors;
    }
    return bFilledGroup ? EnDeleteQuestion::WithOrWithoutProcessors : EnDeleteQuestion::None;
}
