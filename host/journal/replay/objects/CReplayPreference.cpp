#include "journal/replay/objects/CReplayPreference.h"

CReplayPreference::CReplayPreference(IReplayAnswers& answers) : caller(answers, "PreferenceControl") { }

void CReplayPreference::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayPreference::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}

bool CReplayPreference::IsChiefMode()
{
    return caller.Call("IsChiefMode").value.toBool();
}
