#include "double/CPrcBasicControlDouble.h"

#include <QHostAddress>

void CPrcBasicControlDouble::RefreshProcessors()
{
    const CGuard guard = Command("RefreshProcessors");
}

void CPrcBasicControlDouble::AddSimulators(SSimulatorRequest request)
{
    const CGuard guard
        = Command("AddSimulators",
                  QStringLiteral("type %1, count %2, output %3").arg(request.nType).arg(request.nCount).arg(request.nOutput));
}

void CPrcBasicControlDouble::AddProcessor(quint32 nIP)
{
    const CGuard guard = Command("AddProcessor", QHostAddress(nIP).toString());
}

void CPrcBasicControlDouble::RenameProcessor(QUuid idProcessor, QString strName)
{
    const CGuard guard = Command("RenameProcessor", Text(idProcessor) + QStringLiteral(", ") + Text(strName));
}

QString CPrcBasicControlDouble::GetTypeName(qint32 nType)
{
    const CGuard guard = Read("GetTypeName", QString::number(nType));
    return Answer(
        [&](SControlAnswers& answers) { return answers.mapTypeName.value(nType, QStringLiteral("Type %1").arg(nType)); });
}

SLocalAddress CPrcBasicControlDouble::GetLocalAddress()
{
    const CGuard guard = Read("GetLocalAddress");
    return Answer([&](SControlAnswers& answers) { return answers.addressLocal; });
}

bool CPrcBasicControlDouble::IsListLocked()
{
    const CGuard guard = Read("IsListLocked");
    return Answer([&](SControlAnswers& answers) { return answers.bListLocked; });
}

bool CPrcBasicControlDouble::IsRefreshBlocked()
{
    const CGuard guard = Read("IsRefreshBlocked");
    return Answer([&](SControlAnswers& answers) { return answers.bRefreshBlocked; });
}
