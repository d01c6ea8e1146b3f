#include "journal/CProjectManageJournal.h"

#include "interfaces/control/SProjectInfo.h"
#include "journal/recording/CRecordedCall.h"

CProjectManageJournal::CProjectManageJournal(IProjectManageControl& innerIn, CCallLog& journal)
    : inner(innerIn), writer(journal, "ProjectManageControl")
{ }

void CProjectManageJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CProjectManageJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}

void CProjectManageJournal::GetProjectInfo(SProjectInfo& info)
{
    CRecordedCall call(writer, RecordRead, "GetProjectInfo");
    call.Fill(info, [&](auto& filled) { inner.GetProjectInfo(filled); });
    call.SetResult(info);
    writer.Read("GetProjectInfo", QString::fromStdString(info.strName));
}
