#include "double/CConfigControlDouble.h"

void CConfigControlDouble::GetReservedIPs(QList<uint>& listIP)
{
    const CGuard guard = Read("GetReservedIPs");
    Answer([&](SControlAnswers& answers) { listIP.append(answers.listReservedIP); });
}

QString CConfigControlDouble::GetListFilePath()
{
    const CGuard guard = Read("GetListFilePath");
    return Answer([&](SControlAnswers& answers) { return answers.strListFilePath; });
}
