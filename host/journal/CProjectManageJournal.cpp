#include "journal/CProjectManageJournal.h"

#include "interfaces/control/SProjectInfo.h"

CProjectManageJournal::CProjectManageJournal(IProjectManageControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "ProjectManageControl")
{ }

void CProjectManageJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CProjectManageJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}

void CProjectManageJournal::GetProjectInfo(SProjectInfo& info)
{
    inner.GetProjectInfo(info);
    writer.Read("GetProjectInfo", QString::fromStdString(info.strName));
}
