#include "controlhost/CJobs.h"
#include "interfaces/control/CorvidControl.h"
#include "journal/CControlJournal.h"

#include <optional>

int main()
{
    CCallLog journal(2);
    CJobs jobs;
    std::optional<CControlJournal> decorators;
    if (g_pRuntimeControl) {
        decorators.emplace(SControlPointers::Linked(), journal, jobs, [](int) { return QString(); });
    }
    journal.Write(RecordCommand, "g_pRuntimeControl", QStringLiteral("SetBusy(true)"));
    const std::vector<SCallRecord> vecRecord = journal.ReadAfter(0);
    return vecRecord.size() == 1 && journal.GetLastNumber() == 1 ? 0 : 1;
}
