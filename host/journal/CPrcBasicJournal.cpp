#include "journal/CPrcBasicJournal.h"

#include "journal/CSlowCall.h"
#include "journal/recording/CRecordedCall.h"

#include <QHostAddress>

CPrcBasicJournal::CPrcBasicJournal(IPrcBasicControl& innerIn, CCallLog& journal, CJobs& jobsIn)
    : inner(innerIn), writer(journal, "PrcBasicControl"), jobs(jobsIn)
{ }

void CPrcBasicJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CPrcBasicJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}

void CPrcBasicJournal::RefreshProcessors()
{
    writer.Command("RefreshProcessors");
    const CSlowCall job(writer, jobs, "RefreshProcessors", QStringLiteral("Scanning the network"));
    CRecordedCall call(writer, RecordCommand, "RefreshProcessors");
    call.Announce();
    call.Carry([&] { inner.RefreshProcessors(); });
}

void CPrcBasicJournal::AddSimulators(SSimulatorRequest request)
{
    writer.Command("AddSimulators", request.nType, request.nCount, request.nOutput);
    CRecordedCall call(writer, RecordCommand, "AddSimulators", request);
    call.Announce();
    call.Carry([&] { inner.AddSimulators(request); });
}

void CPrcBasicJournal::AddProcessor(quint32 nIP)
{
    const QString strIP = QHostAddress(nIP).toString();
    writer.Command("AddProcessor", strIP);
    const CSlowCall job(writer, jobs, "AddProcessor", QStringLiteral("Adding the processor at ") + strIP);
    CRecordedCall call(writer, RecordCommand, "AddProcessor", SAddress(nIP));
    call.Announce();
    call.Carry([&] { inner.AddProcessor(nIP); });
}

void CPrcBasicJournal::RenameProcessor(QUuid idProcessor, QString strName)
{
    writer.Command("RenameProcessor", idProcessor, strName);
    CRecordedCall call(writer, RecordCommand, "RenameProcessor", idProcessor, SPrivateText(strName));
    call.Carry([&] { inner.RenameProcessor(idProcessor, strName); });
}

QString CPrcBasicJournal::GetTypeName(qint32 nType)
{
    CRecordedCall call(writer, RecordRead, "GetTypeName", nType);
    const QString result = call.Ask(QString(), [&] { return inner.GetTypeName(nType); });
    call.SetResult(result);
    writer.Read("GetTypeName", result, nType);
    return result;
}

SLocalAddress CPrcBasicJournal::GetLocalAddress()
{
    CRecordedCall call(writer, RecordRead, "GetLocalAddress");
    const SLocalAddress result = call.Ask(SLocalAddress(), [&] { return inner.GetLocalAddress(); });
    call.SetResult(SAddress(result.nIP));
    writer.Read("GetLocalAddress", QHostAddress(result.nIP).toString());
    return result;
}

bool CPrcBasicJournal::IsListLocked()
{
    CRecordedCall call(writer, RecordRead, "IsListLocked");
    const bool result = call.Ask(false, [&] { return inner.IsListLocked(); });
    call.SetResult(result);
    writer.Read("IsListLocked", result);
    return result;
}

bool CPrcBasicJournal::IsRefreshBlocked()
{
    CRecordedCall call(writer, RecordRead, "IsRefreshBlocked");
    const bool result = call.Ask(false, [&] { return inner.IsRefreshBlocked(); });
    call.SetResult(result);
    writer.Read("IsRefreshBlocked", result);
    return result;
}
