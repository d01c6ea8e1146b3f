#include "journal/replay/objects/CReplayProjectManage.h"

CReplayProjectManage::CReplayProjectManage(IReplayAnswers& answers) : caller(answers, "ProjectManageControl") { }

void CReplayProjectManage::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayProjectManage::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}

void CReplayProjectManage::GetProjectInfo(SProjectInfo& info)
{
    ReplayValue::ReadProject(caller.Call("GetProjectInfo").value, info);
}
