#include "CHostDouble.h"

QStringList CHostDouble::Calls() const
{
    const QMutexLocker locker(&mutex);
    return listCall;
}

void CHostDouble::ClearCalls()
{
    const QMutexLocker locker(&mutex);
    listCall.clear();
}

void CHostDouble::ChangeBusy(bool bNow)
{
    bBusy = bNow;
    timeBusy = bNow ? QDateTime::currentDateTime() : QDateTime();
    emit BusyChanged(bNow, timeBusy);
}

QString CHostDouble::SaveListAside(QString& strReason)
{
    strReason = QStringLiteral("no disk");
    return {};
}

void CHostDouble::SetChief(const QUuid& idGroup, const QUuid& idChief)
{
    Note(QStringLiteral("chief %1 %2").arg(idGroup.toString(), idChief.toString()));
}

SRefusal CHostDouble::FindRestoreFault(const SListSnapshot& /*from*/, const SListSnapshot& to) const
{
    SRefusal refusal;
    refusal.command = CommandRestore;
    refusal.reason = fnReason ? fnReason(to.nEdition) : reason;
    return refusal;
}

bool CHostDouble::RestoreList(const SListSnapshot& from, const SListSnapshot& to)
{
    SRefusal refusal = FindRestoreFault(from, to);
    refusal.reason = refusal.reason == ReasonNone ? reasonLate : refusal.reason;
    if (refusal.reason != ReasonNone) {
        emit CommandRefused(refusal);
        return false;
    }
    Note(QStringLiteral("restore %1>%2").arg(from.nEdition).arg(to.nEdition));
    return true;
}

QList<SEarlierList> CHostDouble::GetEarlierLists() const
{
    if (fnBlock) {
        fnBlock();
    }
    return listEarlier;
}

bool CHostDouble::TakeEarlierList(const QString& strPath)
{
    return Carry(CommandTakeEarlier, strPath, QStringLiteral("earlier ") + strPath);
}

SRefusedList CHostDouble::PreviewRefusedList() const
{
    if (fnBlock) {
        fnBlock();
    }
    return refused;
}

bool CHostDouble::UseRefusedList()
{
    const bool bDone = Carry(CommandUseRefused, {}, QStringLiteral("use refused"));
    if (bDone) {
        strListError.clear();
        emit ListTroubleChanged();
    }
    return bDone;
}

QStringList CHostDouble::GetRunningJobs() const
{
    QStringList listJob;
    for (const SRunningJob& job : vecJob) {
        listJob.append(job.strJob);
    }
    return listJob;
}

bool CHostDouble::Carry(EnListCommand command, const QString& strName, const QString& strCall)
{
    if (fnBlock) {
        fnBlock();
    }
    if (reason != ReasonNone) {
        emit CommandRefused({ command, strName, reason, {}, {} });
        return false;
    }
    Note(strCall);
    return true;
}

void CHostDouble::Note(const QString& strCall)
{
    const QMutexLocker locker(&mutex);
    listCall.append(strCall);
}
