#include "interfaces/host/ProcessorTreeViewInit.h"

#include "data/GuiThread.h"
#include "interfaces/host/IUIManagement.h"
#include "shell/CProcessorTreeView.h"

int CProcessorTreeView_Init(ICorvidWidget** ppWidget, IUIManagement* pUIManagement)
{
    if (!ppWidget) {
        return 0;
    }
    Q_ASSERT(GuiThread::IsCurrent());
    *ppWidget = new CProcessorTreeView(pUIManagement->GetParentWidget());
    return 1;
}
