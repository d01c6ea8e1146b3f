#include "journal/replay/objects/CReplayProtocal.h"

CReplayProtocal::CReplayProtocal(IReplayAnswers& answers) : caller(answers, "ProtocalControl") { }

void CReplayProtocal::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayProtocal::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}
