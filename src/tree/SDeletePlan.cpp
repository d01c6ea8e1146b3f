#include "tree/SDeletePlan.h"

#include "data/CProcessorTreeData.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "nodes/EnNodeType.h"

SDeletePlan SDeletePlan::ForNodes(const std::vector<QUuid>& vecId)
{
    SDeletePlan plan;
    for (const QUuid& id : vecId) {
        if (!id.isNull()) {
            plan.mapNode[id] = g_pPrcListControl->GetNodeType(id) == NodeGroup;
        }
    }
    return plan;
}

EnDeleteQuestion SDeletePlan::GetQuestion() const
{
    bool bProcessor = false;
    bool bFilledGroup = false;
    bool bEmptyGroup = false;
    for (auto it = mapNode.cbegin(); it != mapNode.cend(); ++it) {
        if (!it.value()) {
            bProcessor = true;
        } else if (g_pProcessorTreeData->GetGroupProcessorCount(it.key()) != 0) {
            bFilledGroup = true;
        } else {
            bEmptyGroup = true;
        }
    }
    return DeleteQuestion(bProcessor, bFilledGroup, bEmptyGroup);
}
