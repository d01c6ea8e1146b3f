#include "CorvidControl/CListStore.h"

#include "CorvidControl/CHostEvents.h"
#include "CorvidControl/CHostState.h"
#include "CorvidControl/CListFormat.h"
#include "CorvidControl/CSite.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace
{

QString Describe(const QString& strPath, const QString& strReason)
{
    return strPath + QStringLiteral(": ") + strReason;
}

} // namespace

CListStore::CListStore(CSite& siteNew, CHostEvents& eventsNew, const QString& strPath)
    : site(siteNew), events(eventsNew), strOwnPath(QFileInfo(strPath).absoluteFilePath())
{ }

bool CListStore::Load()
{
    if (!QFileInfo::exists(strOwnPath) && !QFileInfo(strOwnPath).isSymLink())
        return true;
    const SListReading reading = ReadFile(strOwnPath);
    if (reading.verdict != SListReading::Valid) {
        strLoadError = Describe(strOwnPath, reading.strReason);
        SetTrouble(strLoadError);
        events.Warn(QStringLiteral("The list was not read, it stays empty. ") + strLoadError);
        return false;
    }
    site.ReplaceList(reading.node);
    return true;
}

QString CListStore::GetTrouble() const
{
    const std::lock_guard<std::mutex> lock(mutexTrouble);
    return strTrouble;
}

void CListStore::SetTrouble(const QString& strTroubleNow)
{
    {
        const std::lock_guard<std::mutex> lock(mutexTrouble);
        if (strTrouble == strTroubleNow) {
            return;
        }
        strTrouble = strTroubleNow;
    }
    emit events.ListTroubleChanged();
}

QString CListStore::Save()
{
    const QString strReason = TrySave();
    SetTrouble(strReason);
    return strReason;
}

QString CListStore::TrySave()
{
    const std::lock_guard<std::mutex> lock(mutexFile);
    if (!strLoadError.isEmpty()) {
        return strLoadError;
    }
    const QString strFault = WriteProven(strOwnPath, CListFormat::Write(site.GetTree(false)));
    return strFault.isEmpty() ? QString() : Describe(strOwnPath, strFault);
}

QString CListStore::SaveAside(QString& strReason)
{
    const std::lock_guard<std::mutex> lock(mutexFile);
    const QFileInfo own(strOwnPath);
    const QString strStem = own.path() + QLatin1Char('/') + own.completeBaseName() + QStringLiteral(".unsaved-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    QString strPath = strStem + QStringLiteral(".kvtl");
    for (int n = 2; QFileInfo::exists(strPath); ++n) {
        strPath = QStringLiteral("%1-%2.kvtl").arg(strStem).arg(n);
    }
    const QString strFault = WriteProven(strPath, CListFormat::Write(site.GetTree(false)));
    strReason = strFault.isEmpty() ? QString() : Describe(strPath, strFault);
    return strFault.isEmpty() ? strPath : QString();
}

CListStore::EnExportResult CListStore::Export(const QString& strPath)
{
    const std::lock_guard<std::mutex> lock(mutexFile);
    const QString strTarget = QFileInfo(strPath).absoluteFilePath();
    if (!strLoadError.isEmpty() && strTarget == strOwnPath) {
        events.Warn(QStringLiteral("The list was not saved over a file that could not be read. ") + strLoadError);
        return ExportProtected;
    }
    const QByteArray bytes = CListFormat::Write(site.GetTree(false));
    const QString strFault = WriteProven(strPath, bytes);
    if (!strFault.isEmpty()) {
        events.Warn(QStringLiteral("The list was not saved. ") + Describe(strPath, strFault));
        return ExportNotWritten;
    }
    // Reading it back is the only proof there is that the disk took it.
    QFile file(strPath);
    if (file.open(QIODevice::ReadOnly) && file.readAll() != bytes) {
        events.Warn(QStringLiteral("The list was saved, but what is there now is no list. ") + strPath);
        return ExportWorthless;
    }
    return ExportDone;
}

CListStore::EnImportResult CListStore::Import(const QString& strPath)
{
    const std::lock_guard<std::mutex> lock(mutexFile);
    const QString strCommand = QStringLiteral("Importing ") + strPath;
    if (site.GetHost().IsLocked()) {
        site.Refuse(SenderPrcList, strCommand, QStringLiteral("the list is locked"));
        return ImportLocked;
    }
    const SListReading reading = ReadFile(strPath);
    if (reading.verdict != SListReading::Valid) {
        site.Refuse(SenderPrcList, strCommand, reading.strReason);
        return reading.verdict == SListReading::TooLarge ? ImportTooLarge : ImportInvalid;
    }
    const EnImportResult result = Overwrite(strPath, CListFormat::Write(reading.node));
    if (result == ImportDone)
        site.ReplaceList(reading.node);
    return result;
}

SListReading CListStore::ReadFile(const QString& strPath) const
{
    SListReading reading;
    QFile file(strPath);
    if (QFileInfo(strPath).isDir())
        reading.strReason = QStringLiteral("it is a folder");
    else if (!file.open(QIODevice::ReadOnly))
        reading.strReason = file.errorString();
    else
        reading = CListFormat::Read(file.read(CListFormat::nMaxBytes + 1), site.GetLimits());
    return reading;
}

// What went wrong; empty when nothing did. A list that the next start would refuse must not take the
// place of a good one.
QString CListStore::WriteProven(const QString& strPath, const QByteArray& bytes) const
{
    if (strPath.isEmpty())
        return QStringLiteral("no file was named");
    const SListReading proof = CListFormat::Read(bytes, site.GetLimits());
    if (proof.verdict != SListReading::Valid)
        return QStringLiteral("it could not be read again, ") + proof.strReason;
    return WriteFile(strPath, bytes);
}

// What went wrong; empty when nothing did. Unbuffered and synchronised by hand: QSaveFile itself notices
// neither a write that its buffer could not complete nor a disk that is full only when it is asked.
QString CListStore::WriteFile(const QString& strPath, const QByteArray& bytes) const
{
    QSaveFile file(strPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    if (file.write(bytes) != bytes.size())
        return QStringLiteral("the disk took only a part of it");
    if (fsync(file.handle()) != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    return file.commit() ? QString() : file.errorString();
}

// The copy stands beside the own list, so that the step that overwrites is one rename within a folder. An
// own list that is a symbolic link stays one: what it leads to is replaced, as it is when it is saved.
CListStore::EnImportResult CListStore::Overwrite(const QString& strPath, const QByteArray& bytes)
{
    const QString strCommand = QStringLiteral("Importing ") + strPath;
    if (!strLoadError.isEmpty()) {
        site.Refuse(SenderPrcList, strCommand, QStringLiteral("the own list is not touched, ") + strLoadError);
        return ImportNotOverwritten;
    }
    const QString strLinked = QFileInfo(strOwnPath).canonicalFilePath(); // empty without such a file
    const QString strReal = strLinked.isEmpty() ? strOwnPath : strLinked;
    const QString strCopy = strReal + QStringLiteral(".import");
    const QString strFault = WriteFile(strCopy, bytes);
    if (!strFault.isEmpty()) {
        site.Refuse(SenderPrcList, strCommand, Describe(strCopy, strFault));
        return ImportNotCopied;
    }
    if (std::rename(QFile::encodeName(strCopy).constData(), QFile::encodeName(strReal).constData()) != 0) {
        const QString strReason = QString::fromLocal8Bit(std::strerror(errno));
        QFile::remove(strCopy);
        site.Refuse(SenderPrcList, strCommand, Describe(strReal, strReason));
        return ImportNotOverwritten;
    }
    return ImportDone;
}
