#include "tree/commands/CDeleteJob.h"

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <thread>

CDeleteJob::CDeleteJob(const SDeletePlan& planIn) : plan(planIn) { }

void CDeleteJob::Start(const SDeletePlan& plan)
{
    std::thread(CDeleteJob(plan)).detach();
}

void CDeleteJob::operator()() const
{
    Q_ASSERT(g_pPrcListControl && g_pRuntimeControl);
    DeleteNodes();
    const std::vector<QUuid> vecNext{ plan.idNext };
    if (!g_pRuntimeControl->SetSelectedNodes(vecNext)) {
        g_pRuntimeControl->PostMessage(MessageSelectionRefused);
    }
    g_pRuntimeControl->PostMessage(MessageDeleteFinished);
    g_pRuntimeControl->SetBusy(false);
}

void CDeleteJob::DeleteNodes() const
{
    for (auto it = plan.mapNode.cbegin(); it != plan.mapNode.cend(); ++it) {
        if (it.value()) {
            g_pPrcListControl->DeleteGroup(it.key(), plan.bWithProcessors);
        } else {
            g_pPrcListControl->DeleteProcessor(it.key(), false);
        }
    }
}
