#include "controlhost/CJobs.h"
#include "controlhost/IControlHost.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "journal/CControlJournal.h"

#include <memory>

int main()
{
    SControlOptions options;
    options.strListFile = QStringLiteral("journal.kvtl");
    options.bQuietDay = false;
    const std::unique_ptr<IControlHost> pHost(CorvidControl_CreateHost(options));
    CCallLog log(64);
    CJobs jobs;
    const CControlJournal journal(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
    g_pRuntimeControl->SetBusy(true);
    const bool bCounted = jobs.IsBusy();
    g_pRuntimeControl->SetBusy(false);
    int nWritten = 0;
    for (const SCallRecord& record : log.ReadAfter(0)) {
        nWritten += record.strText.startsWith(QLatin1String("SetBusy")) ? 1 : 0;
    }
    return bCounted && !jobs.IsBusy() && nWritten == 2 ? 0 : 1;
}
