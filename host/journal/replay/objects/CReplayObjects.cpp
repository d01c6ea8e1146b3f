#include "journal/replay/objects/CReplayObjects.h"

CReplayObjects::CReplayObjects(IReplayAnswers& answers)
    : config(answers), prcBasic(answers), prcList(answers), prcRuntime(answers), preference(answers), projectManage(answers),
      protocal(answers), runtime(answers)
{ }

SControlPointers CReplayObjects::GetPointers()
{
    return { &pConfig, &pPrcBasic, &pPrcList, &pPrcRuntime, &pPreference, &pProjectManage, &pProtocal, &pRuntime };
}
