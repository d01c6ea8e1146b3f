#include "journal/CPrcBasicJournal.h"

#include "journal/CSlowCall.h"

#include <QHostAddress>

CPrcBasicJournal::CPrcBasicJournal(IPrcBasicControl& innerIn, CCallLog& journal, CJobs& jobsIn)
    : inner(innerIn), writer(journal, "PrcBasicControl"), jobs(jobsIn)
{ }

void CPrcBasicJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CPrcBasicJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}

void CPrcBasicJournal::RefreshProcessors()
{
    writer.Command("RefreshProcessors");
    const CSlowCall call(writer, jobs, "RefreshProcessors", QStringLiteral("Scanning the network"));
    inner.RefreshProcessors();
}

void CPrcBasicJournal::AddSimulators(SSimulatorRequest request)
{
    writer.Command("AddSimulators", request.nType, request.nCount, request.nOutput);
    inner.AddSimulators(request);
}

void CPrcBasicJournal::AddProcessor(quint32 nIP)
{
    const QString strIP = QHostAddress(nIP).toString();
    writer.Command("AddProcessor", strIP);
    const CSlowCall call(writer, jobs, "AddProcessor", QStringLiteral("Adding the processor at ") + strIP);
    inner.AddProcessor(nIP);
}

void CPrcBasicJournal::RenameProcessor(QUuid idProcessor, QString strName)
{
    writer.Command("RenameProcessor", idProcessor, strName);
    inner.RenameProcessor(idProcessor, strName);
}

QString CPrcBasicJournal::GetTypeName(qint32 nType)
{
    const QString result = inner.GetTypeName(nType);
    writer.Read("GetTypeName", result, nType);
    return result;
}

SLocalAddress CPrcBasicJournal::GetLocalAddress()
{
    const SLocalAddress result = inner.GetLocalAddress();
    writer.Read("GetLocalAddress", QHostAddress(result.nIP).toString());
    return result;
}

bool CPrcBasicJournal::IsListLocked()
{
    const bool result = inner.IsListLocked();
    writer.Read("IsListLocked", result);
    return result;
}

bool CPrcBasicJournal::IsRefreshBlocked()
{
    const bool result = inner.IsRefreshBlocked();
    writer.Read("IsRefreshBlocked", result);
    return result;
}
