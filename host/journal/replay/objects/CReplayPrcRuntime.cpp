#include "journal/replay/objects/CReplayPrcRuntime.h"

CReplayPrcRuntime::CReplayPrcRuntime(IReplayAnswers& answers) : caller(answers, "PrcRuntimeControl") { }

void CReplayPrcRuntime::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayPrcRuntime::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}
