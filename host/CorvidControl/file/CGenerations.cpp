#include "CorvidControl/file/CGenerations.h"

#include "CorvidControl/file/DatedFile.h"
#include "CorvidControl/file/FileAccess.h"

#include <QFile>

CGenerations::CGenerations(const CControlClock& clockIn) : clock(clockIn) { }

bool CGenerations::IsDue(const QString& strListPath) const
{
    if (bKept) {
        return clock.GetNow() - timeLast >= timeBetween;
    }
    const QDateTime dateNow = clock.GetDate();
    const QStringList listPath = DatedFile::Find(strListPath, {}, dateNow);
    if (listPath.isEmpty()) {
        return true;
    }
    const qint64 nAge = DatedFile::GetDate(listPath.last()).secsTo(dateNow);
    return nAge < 0 || nAge >= std::chrono::seconds(timeBetween).count();
}

QString CGenerations::Keep(const QString& strListPath, const QByteArray& bytes)
{
    const QDateTime dateNow = clock.GetDate();
    const QStringList listPath = DatedFile::Find(strListPath, {}, dateNow);
    const bool bSame = !listPath.isEmpty() && FileAccess::Read(listPath.last(), bytes.size()).bytes == bytes;
    QString strFault;
    if (!bSame && DatedFile::Write(strListPath, {}, dateNow, bytes, strFault).isEmpty()) {
        return strFault;
    }
    bKept = true;
    timeLast = clock.GetNow();
    return {};
}

void CGenerations::Spare(const QString& strPath)
{
    setSpared.insert(strPath);
}

QStringList CGenerations::Prune(const QString& strListPath) const
{
    QStringList listFault;
    const QStringList listOld = FindOld(DatedFile::Find(strListPath, {}, clock.GetDate()));
    for (const QString& strPath : listOld) {
        QFile file(strPath);
        if (!setSpared.contains(strPath) && !file.remove()) {
            listFault.append(strPath + QStringLiteral(": ") + file.errorString());
        }
    }
    return listFault;
}

QStringList CGenerations::FindOld(const QStringList& listPath)
{
    QVector<QDate> vecDay; // of the first of each day, in the order of the list
    QStringList listFirst;
    for (const QString& strPath : listPath) {
        const QDate day = DatedFile::GetDate(strPath).date();
        if (!vecDay.contains(day)) {
            vecDay.append(day);
            listFirst.append(strPath);
        }
    }
    QStringList listGoing;
    const QStringList listOld = listPath.mid(0, qMax(0, listPath.size() - nKept));
    const QStringList listDay = listFirst.mid(qMax(0, listFirst.size() - nKeptDays));
    for (const QString& strPath : listOld) {
        if (!listDay.contains(strPath)) {
            listGoing.append(strPath);
        }
    }
    return listGoing;
}
