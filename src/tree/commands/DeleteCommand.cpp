#include "tree/commands/DeleteCommand.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "nodes/EnNodeType.h"
#include "tree/commands/CDeleteDialog.h"
#include "tree/commands/CDeleteJob.h"
#include "tree/commands/DeleteRule.h"
#include "tree/commands/SDeletePlan.h"

namespace {

// Null ids stand for the root, which stays.
SDeletePlan PlanFor(const std::vector<QUuid>& vecId)
{
    SDeletePlan plan;
    for (const QUuid& id : vecId) {
        if (!id.isNull()) {
            plan.mapNode[id] = g_pPrcListControl->GetNodeType(id) == NodeGroup;
        }
    }
    return plan;
}

EnDeleteQuestion QuestionFor(const SDeletePlan& plan)
{
    bool bProcessor = false;
    bool bFilledGroup = false;
    bool bEmptyGroup = false;
    for (auto it = plan.mapNode.cbegin(); it != plan.mapNode.cend(); ++it) {
        if (!it.value()) {
            bProcessor = true;
        } else if (g_pProcessorTreeData->GetGroupProcessorCount(it.key()) != 0) {
            bFilledGroup = true;
        } else {
            bEmptyGroup = true;
        }
    }
    return DeleteRule::GetQuestion(bProcessor, bFilledGroup, bEmptyGroup);
}

} // namespace

void DeleteCommand::Run(QWidget* pParent, bool bAsk, const FnNextNode& fnNextNode)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (DeleteRule::IsBlocked()) {
        return;
    }
    SDeletePlan plan = PlanFor(g_pProcessorTreeData->GetSelectedNodes());
    if (plan.mapNode.isEmpty()) {
        return;
    }
    plan.bWithProcessors = true;
    if (bAsk && !CDeleteDialog(pParent).Ask(QuestionFor(plan), plan.bWithProcessors)) {
        return;
    }
    g_pRuntimeControl->SetBusy(true);
    plan.idNext = fnNextNode();
    CDeleteJob::Start(plan);
}
