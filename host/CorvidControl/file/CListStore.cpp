#include "CorvidControl/file/CListStore.h"

#include "CorvidControl/file/CFileReplacement.h"
#include "CorvidControl/file/FileAccess.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/list/NameRules.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"

#include <QFileInfo>

namespace {

QString BuildTrouble(const SListSave& save)
{
    return save.result == SListSave::Saved ? QString() : QStringLiteral("The list is not being saved. ") + save.strReason;
}

} // namespace

CListStore::CListStore(CProcessorList& processorsIn, CHostEvents& eventsIn, const QString& strPath, const CControlClock& clockIn)
    : processors(processorsIn), events(eventsIn), own(strPath, processors.GetLimits(), clockIn)
{ }

bool CListStore::Load()
{
    Q_ASSERT(processors.GetEdition().nEdit == 0);
    SNews news;
    {
        const Lock lock(mutexFile);
        const SListReading reading = own.Load();
        news.listWarning = reading.listMended;
        QString strFault = BuildTrouble(own.Check());
        if (reading.verdict != SListReading::Valid) {
            strLoadError = GetPath() + QStringLiteral(": ") + NameRules::GetLine(reading.strReason);
            strFault = QStringLiteral("The list was not read, it stays empty. ") + strLoadError;
        }
        own.Adopt(processors.ReplaceList(reading.node));
        SetTrouble(strFault, news);
        if (!strFault.isEmpty()) {
            news.listWarning.append(strFault);
        }
    }
    Announce(news);
    return strLoadError.isEmpty();
}

QString CListStore::GetTrouble() const
{
    const Lock lock(mutexTrouble);
    return strTrouble;
}

QString CListStore::Save()
{
    SNews news;
    QString strFault;
    {
        const Lock lock(mutexFile);
        strFault = BuildTrouble(SaveHere(lock, news, false));
        if (!own.IsEdited(processors.GetEdition().nEdit)) {
            strFault.clear();
        }
    }
    Announce(news);
    return NameRules::GetLine(strFault);
}

bool CListStore::SaveSoon()
{
    SNews news;
    bool bSecured = true;
    {
        const Lock lock(mutexFile);
        if (own.IsUnsecured(processors.GetEdition().nEdit)) {
            bSecured = SaveHere(lock, news, false).bSecured;
        }
    }
    Announce(news);
    return bSecured;
}

QString CListStore::SaveAside(QString& strReason)
{
    const Lock lock(mutexFile);
    const QString strPath = own.SaveAside(processors.GetEdition(), strReason);
    strReason = strPath.isEmpty() ? NameRules::GetLine(strReason) : QString();
    return strPath;
}

void CListStore::KeepEarlier(const SListEdition& edition)
{
    SNews news;
    {
        const Lock lock(mutexFile);
        news.listWarning = own.KeepEarlier(edition);
    }
    Announce(news);
}

// The own place counts in every spelling, and so does a second name of the own file where that is not ours.
CListStore::EnExportResult CListStore::Export(const QString& strPath)
{
    SNews news;
    EnExportResult result = ExportDone;
    {
        const Lock lock(mutexFile);
        const bool bOwnFile = FileAccess::IsSameFile(strPath, GetPath()) && own.Check().result == SListSave::LeftAlone;
        if (bOwnFile || FileAccess::IsSamePlace(strPath, GetPath())) {
            const SListSave save = SaveHere(lock, news, true);
            result = save.result == SListSave::Saved  ? ExportDone
                : save.result == SListSave::LeftAlone ? ExportLeftAlone
                                                      : ExportNotWritten;
        } else {
            result = ExportElsewhere(lock, strPath, news);
        }
    }
    Announce(news);
    return result;
}

CListStore::EnImportResult CListStore::Import(const QString& strPath)
{
    SNews news;
    QString strFault = QStringLiteral("the list is locked");
    EnImportResult result = ImportLocked;
    if (!processors.GetHost().IsLocked()) {
        const Lock lock(mutexFile);
        result = TryImport(lock, strPath, strFault, news);
    }
    Announce(news);
    if (result != ImportDone) {
        processors.Refuse(SenderPrcList, QStringLiteral("Importing ") + strPath, strFault);
    }
    return result;
}

SListSave CListStore::SaveHere(const Lock& /*lock*/, SNews& news, bool bAlways)
{
    const SListSave save = own.Save(processors.GetEdition());
    news.listWarning += save.listWarning;
    SetTrouble(BuildTrouble(save), news);
    if (save.result != SListSave::Saved && (bAlways || news.bTrouble)) {
        news.listWarning.append(BuildTrouble(save));
    }
    return save;
}

CListStore::EnExportResult CListStore::ExportElsewhere(const Lock& /*lock*/, const QString& strPath, SNews& news) const
{
    QString strFault = QStringLiteral("no file was named");
    if (!strPath.isEmpty()) {
        const QByteArray bytes = ListFormat::Write(processors.GetTree(false));
        strFault = ListFormat::FindProofFault(bytes, processors.GetLimits());
        CFileReplacement replacement(FileAccess::FollowLinks(QFileInfo(strPath).absoluteFilePath()));
        if (strFault.isEmpty() && replacement.Write(bytes) && replacement.Place(true) == CFileReplacement::Placed) {
            return ExportDone;
        }
        strFault = strFault.isEmpty() ? replacement.GetFault() : strFault;
    }
    news.listWarning.append(QStringLiteral("The list was not exported. %1: %2").arg(strPath, strFault));
    return ExportNotWritten;
}

CListStore::EnImportResult CListStore::TryImport(const Lock& /*lock*/, const QString& strPath, QString& strFault, SNews& news)
{
    const SFileContent content = FileAccess::Read(strPath, processors.GetLimits().nBytes);
    if (content.kind != SFileContent::Read) {
        strFault = content.kind == SFileContent::Absent ? QStringLiteral("it is not there") : content.strReason;
        return ImportInvalid;
    }
    const SListReading reading = ListFormat::Read(content.bytes, processors.GetLimits());
    if (reading.verdict != SListReading::Valid) {
        strFault = reading.strReason;
        return reading.verdict == SListReading::TooLarge ? ImportTooLarge : ImportInvalid;
    }
    const QByteArray bytes = ListFormat::Write(reading.node);
    strFault = bytes == content.bytes ? QString() : ListFormat::FindProofFault(bytes, processors.GetLimits());
    if (!strFault.isEmpty()) {
        return ImportNotCopied;
    }
    const SListSave save = own.Overwrite(processors.GetEdition(), bytes);
    news.listWarning += save.listWarning;
    if (save.result != SListSave::Saved) {
        strFault = QStringLiteral("the own list is not overwritten, ") + save.strReason;
        return save.result == SListSave::NotWritten ? ImportNotCopied : ImportNotOverwritten;
    }
    own.Adopt(processors.ReplaceList(reading.node));
    SetTrouble({}, news);
    return ImportDone;
}

void CListStore::SetTrouble(const QString& strTroubleNow, SNews& news)
{
    const QString strLine = NameRules::GetLine(strTroubleNow);
    const Lock lock(mutexTrouble);
    news.bTrouble = strLine != strTrouble;
    strTrouble = strLine;
}

// Without a lock: a listener may call back.
void CListStore::Announce(const SNews& news)
{
    for (const QString& strLine : news.listWarning) {
        events.Warn(strLine);
    }
    if (news.bTrouble) {
        emit events.ListTroubleChanged();
    }
}
