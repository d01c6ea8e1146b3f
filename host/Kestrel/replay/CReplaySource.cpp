#include "Kestrel/replay/CReplaySource.h"

#include "Kestrel/report/ReportJournal.h"
#include "journal/recording/CJournalRing.h"
#include "journal/replay/CRunReader.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int nCodeBadOption = 2;
constexpr int nCodeNoRecording = 7;

QString GetReadFault(const QString& strPath)
{
    const QFileInfo info(strPath);
    if (info.isDir()) {
        return info.isReadable() ? QString() : QStringLiteral("Permission denied");
    }
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

/// The folder of an unpacked report has its journal in a folder of its own.
QString FindJournal(const QString& strPath)
{
    const QString strInside = strPath + QStringLiteral("/journal");
    const bool bUnpacked
        = QFileInfo(strPath).isDir() && CJournalRing::GetFiles(strPath).isEmpty() && QFileInfo(strInside).isDir();
    return bUnpacked ? strInside : strPath;
}

int CountRuns(const QString& strFolder)
{
    QStringList listRun;
    const QStringList listFile = CJournalRing::GetFiles(strFolder);
    for (const QString& strFile : listFile) {
        listRun.append(CRunReader::ReadHeader(strFile).value(QStringLiteral("run")).toString());
    }
    listRun.removeAll(QString());
    listRun.removeDuplicates();
    return listRun.size();
}

} // namespace

bool CReplaySource::Open(const QString& strPathIn)
{
    strPath = strPathIn;
    const QString strFault = GetReadFault(strPath);
    if (!strFault.isEmpty()) {
        strError = QStringLiteral("Cannot read '%1': %2").arg(strPath, strFault);
        nErrorCode = nCodeBadOption;
        return false;
    }
    nErrorCode = nCodeNoRecording;
    QString strJournal = FindJournal(strPath);
    if (strPath.endsWith(QLatin1String(".tar.gz")) && !Unpack(strJournal)) {
        return false;
    }
    Read(strJournal);
    return strError.isEmpty();
}

QString CReplaySource::GetError() const
{
    return strError;
}

int CReplaySource::GetErrorCode() const
{
    return nErrorCode;
}

QString CReplaySource::GetPath() const
{
    return strPath;
}

const CRecordedRun& CReplaySource::GetRun() const
{
    return run;
}

QStringList CReplaySource::GetNotes() const
{
    return listNote;
}

QDateTime CReplaySource::GetStart() const
{
    const QDateTime timeStarted = QDateTime::fromString(GetHeaderText(QStringLiteral("started")), Qt::ISODateWithMs);
    const QDateTime timeFirst = run.GetLines().isEmpty() ? timeStarted : run.GetLines().at(run.GetFirstPlace()).date;
    return timeFirst.toOffsetFromUtc(timeStarted.offsetFromUtc());
}

QString CReplaySource::GetHeaderText(const QString& strKey) const
{
    return run.GetHeader().value(strKey).toString();
}

// The last line that says it, or the header.
QJsonObject CReplaySource::GetFirstScreen() const
{
    for (int n = run.GetFirstPlace() - 1; n >= 0; --n) {
        if (run.GetLines().at(n).fields.contains(QStringLiteral("scrollDiscovered"))) {
            return run.GetLines().at(n).fields;
        }
    }
    return run.GetHeader().value(QStringLiteral("screen")).toObject();
}

void CReplaySource::Read(const QString& strJournal)
{
    QString strReason;
    if (!run.Read(strJournal, strReason)) {
        strError = QStringLiteral("Cannot replay '%1': %2").arg(strPath, strReason);
        return;
    }
    if (run.GetFirstPlace() == run.GetLines().size()) {
        strError = QStringLiteral("Cannot replay '%1': Its first files are gone, and the panel did not refresh in the others.")
                       .arg(strPath);
    }
    const int nRuns = QFileInfo(strJournal).isDir() ? CountRuns(strJournal) : 1;
    if (nRuns > 1) {
        listNote.prepend(QStringLiteral("There are %1 runs in it; this is the last one.").arg(nRuns));
    }
}

bool CReplaySource::Unpack(QString& strFolder)
{
    QString strDamage;
    pFolder = std::make_unique<QTemporaryDir>();
    strFolder = pFolder->path();
    const QString strReason = pFolder->isValid() ? ReportJournal::Unpack(strPath, strFolder, strDamage) : pFolder->errorString();
    if (QFileInfo(strPath).size() == 0) {
        strError = QStringLiteral("Cannot read the report '%1': it is empty").arg(strPath);
    } else if (!strReason.isEmpty() || CountRuns(strFolder) == 0) {
        strError = QStringLiteral("Cannot read the report '%1': %2").arg(strPath, strReason + strDamage);
    } else if (!strDamage.isEmpty()) {
        listNote.append(QStringLiteral("The report is damaged (%1); its journal is played up to there.").arg(strDamage));
    }
    return strError.isEmpty();
}
