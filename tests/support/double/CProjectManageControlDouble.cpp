#include "double/CProjectManageControlDouble.h"

#include "interfaces/control/SProjectInfo.h"

void CProjectManageControlDouble::GetProjectInfo(SProjectInfo& info)
{
    const CGuard guard = Read("GetProjectInfo");
    Answer([&](SControlAnswers& answers) { info.strName = answers.strProject.toStdString(); });
}
