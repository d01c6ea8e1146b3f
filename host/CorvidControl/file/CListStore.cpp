#include "CorvidControl/file/CListStore.h"

#include "CorvidControl/devices/CJobScope.h"
#include "CorvidControl/file/CFileReplacement.h"
#include "CorvidControl/file/DatedFile.h"
#include "CorvidControl/file/FileAccess.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/file/ListSalvage.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/list/NameRules.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"

namespace {

QString BuildJob(const QString& strPath)
{
    return NameRules::GetLine(QStringLiteral("Importing ") + strPath);
}

QString BuildTrouble(const SListSave& save)
{
    return save.result == SListSave::Saved ? QString() : QStringLiteral("The list is not being saved. ") + save.strReason;
}

EnRefusalReason GetReason(const SListSave& save)
{
    switch (save.result) {
    case SListSave::NotKept:
        return ReasonFileNotKept;
    case SListSave::NotWritten:
        return ReasonFileNotWritten;
    default:
        return ReasonFileNotReplaced;
    }
}

SEarlierList BuildEarlier(const QString& strPath, const SFileContent& content, const SListLimits& limits)
{
    const bool bRead = content.kind == SFileContent::Read;
    const SListReading reading = bRead ? ListFormat::Read(content.bytes, limits) : SListReading();
    CNodeTree tree;
    tree.SetRoot(reading.node);
    SEarlierList earlier;
    earlier.strPath = strPath;
    earlier.date = DatedFile::GetDate(strPath);
    earlier.nGroups = reading.node.listGroup.size();
    earlier.nProcessors = tree.GetProcessorCount();
    earlier.strFault = bRead ? reading.strReason : content.strReason;
    return earlier;
}

} // namespace

CListStore::CListStore(CProcessorList& processorsIn, CJobs& jobsIn, CHostEvents& eventsIn, const QString& strPath,
                       const CControlClock& clockIn)
    : processors(processorsIn), jobs(jobsIn), events(eventsIn), own(strPath, processors.GetLimits(), clockIn)
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
            const Lock lockTrouble(mutexTrouble);
            strLoadError = GetPath() + QStringLiteral(": ") + NameRules::GetLine(reading.strReason);
            strFault = QStringLiteral("The list was not read, it stays empty. ") + strLoadError;
        }
        own.Adopt(processors.ReplaceList(reading.node).nEdit);
        SetTrouble(strFault, news);
        if (!strFault.isEmpty()) {
            news.listWarning.append(strFault);
        }
    }
    Announce(news);
    return GetLoadError().isEmpty();
}

QString CListStore::GetLoadError() const
{
    const Lock lock(mutexTrouble);
    return strLoadError;
}

QString CListStore::GetTrouble() const
{
    const Lock lock(mutexTrouble);
    return strTrouble;
}

QString CListStore::Save()
{
    SNews news;
    SListSave save;
    QString strFault;
    {
        const Lock lock(mutexFile);
        save = SaveHere(lock, news, false);
        strFault = own.IsEdited(processors.GetEdition().nEdit) ? NameRules::GetLine(BuildTrouble(save)) : QString();
    }
    Announce(news);
    if (!strFault.isEmpty()) {
        ReportFailure(CommandSave, GetPath(), save, strFault);
    }
    return strFault;
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

CListStore::EnExportResult CListStore::Export(const QString& strPath)
{
    SNews news;
    SListSave save;
    {
        const Lock lock(mutexFile);
        const std::optional<bool> bHere = own.IsHere(strPath);
        save = bHere.value_or(false) ? SaveHere(lock, news, true) : ExportElsewhere(lock, strPath, !bHere, news);
    }
    Announce(news);
    if (save.result == SListSave::Saved) {
        return ExportDone;
    }
    ReportFailure(CommandExport, strPath, save, news.listWarning.constLast());
    return save.result == SListSave::LeftAlone ? ExportLeftAlone : ExportNotWritten;
}

CListStore::EnImportResult CListStore::Import(const QString& strPath, EnListCommand command)
{
    SNews news;
    SFault fault{ ReasonListLocked, {} };
    EnImportResult result = ImportLocked;
    const SListCommand importing{ command, QStringLiteral("Importing ") + strPath, strPath };
    if (!processors.GetHost().IsLocked()) {
        const CJobScope job(jobs, BuildJob(strPath));
        const Lock lock(mutexFile);
        result = TryImport(lock, importing, fault, news);
    }
    Announce(news);
    if (result != ImportDone) {
        processors.Refuse(SenderPrcList, importing, fault);
    }
    processors.ReportEdits();
    return result;
}

QList<SEarlierList> CListStore::FindEarlier() const
{
    QStringList listPath;
    {
        const Lock lock(mutexFile);
        listPath = own.FindEarlier();
    }
    QList<SEarlierList> listEarlier;
    for (const QString& strPath : std::as_const(listPath)) {
        const SFileContent content = FileAccess::Read(strPath, processors.GetLimits().nBytes);
        if (content.kind != SFileContent::Absent) { // a save may have removed it just now
            listEarlier.append(BuildEarlier(strPath, content, processors.GetLimits()));
        }
    }
    return listEarlier;
}

bool CListStore::TakeEarlier(const QString& strPath)
{
    bool bKnown = false;
    {
        const Lock lock(mutexFile);
        bKnown = own.FindEarlier().contains(strPath);
        own.Spare(strPath);
    }
    if (!bKnown) {
        processors.Refuse(SenderPrcList, { CommandTakeEarlier, QStringLiteral("Taking back ") + strPath, strPath },
                          { ReasonFileGone, {} });
    }
    return bKnown && Import(strPath, CommandTakeEarlier) == ImportDone;
}

SRefusedList CListStore::PreviewRefused() const
{
    const Lock lock(mutexFile);
    return ReadRefused(lock);
}

bool CListStore::UseRefused()
{
    SNews news;
    SFault fault{ ReasonListLocked, {} };
    const SListCommand command{ CommandUseRefused, QStringLiteral("Using the refused list ") + GetPath(), {} };
    if (!processors.GetHost().IsLocked()) {
        const CJobScope job(jobs, BuildJob(GetPath()));
        const Lock lock(mutexFile);
        fault = TryUseRefused(lock, command, news);
    }
    Announce(news);
    if (!fault.IsNone()) {
        processors.Refuse(SenderPrcList, command, fault);
    }
    processors.ReportEdits();
    return fault.IsNone();
}

SListSave CListStore::SaveHere(const Lock& /*lock*/, SNews& news, bool bAlways)
{
    const SListSave save = own.Save(processors.GetEdition());
    news.listWarning += save.listWarning;
    SetTrouble(BuildTrouble(save), news);
    if (save.result == SListSave::Saved) { // what was refused does not stand there any more
        const Lock lockTrouble(mutexTrouble);
        strLoadError.clear();
    }
    if (save.result != SListSave::Saved && (bAlways || news.bTrouble)) {
        news.listWarning.append(BuildTrouble(save));
    }
    return save;
}

SListSave CListStore::ExportElsewhere(const Lock& /*lock*/, const QString& strPath, bool bUnclear, SNews& news) const
{
    SListSave save;
    if (strPath.isEmpty() || bUnclear) {
        save.strReason = strPath.isEmpty() ? QStringLiteral("no file was named")
                                           : QStringLiteral("it may be the list's own file, and is out of reach");
    } else {
        const QByteArray bytes = ListFormat::Write(processors.GetTree(false));
        save.strReason = ListFormat::FindProofFault(bytes, processors.GetLimits());
        save.strReason = save.strReason.isEmpty() ? CFileReplacement::Overwrite(strPath, bytes) : save.strReason;
        if (save.strReason.isEmpty()) {
            return {};
        }
    }
    save.result = SListSave::NotWritten;
    news.listWarning.append(QStringLiteral("The list was not exported. %1: %2").arg(strPath, save.strReason));
    return save;
}

CListStore::EnImportResult CListStore::TryImport(const Lock& lock, const SListCommand& command, SFault& fault, SNews& news)
{
    const SFileContent content = FileAccess::Read(command.strName, processors.GetLimits().nBytes);
    if (content.kind != SFileContent::Read) {
        fault = { content.kind == SFileContent::Absent ? ReasonFileGone : ReasonFileInvalid, content.strReason };
        return ImportInvalid;
    }
    const SListReading reading = ListFormat::Read(content.bytes, processors.GetLimits());
    if (reading.verdict != SListReading::Valid) {
        const bool bTooLarge = reading.verdict == SListReading::TooLarge;
        fault = { bTooLarge ? ReasonFileTooLarge : ReasonFileInvalid, reading.strReason };
        return bTooLarge ? ImportTooLarge : ImportInvalid;
    }
    if (processors.IsAnySimulator(reading.node)) {
        fault = { ReasonAlreadyListed, {} };
        return ImportInvalid;
    }
    const SProcessorAllNode node = processors.TakeReports(reading.node);
    const QByteArray bytes = ListFormat::Write(node);
    const QString strProof = bytes == content.bytes ? QString() : ListFormat::FindProofFault(bytes, processors.GetLimits());
    if (!strProof.isEmpty()) {
        fault = { ReasonFileInvalid, strProof };
        return ImportNotCopied;
    }
    const SListEdition edition = processors.GetEdition();
    const SListSave save = own.Overwrite(edition, bytes);
    news.listWarning += save.listWarning;
    if (save.result != SListSave::Saved) {
        fault = { GetReason(save), save.strReason };
        const bool bNotCopied = save.result == SListSave::NotWritten || save.result == SListSave::NotKept;
        return bNotCopied ? ImportNotCopied : ImportNotOverwritten;
    }
    fault = ReplaceList(lock, node, command, edition.nEdit, news);
    if (!fault.IsNone()) {
        SaveHere(lock, news, true); // the list before in its place again
        return ImportLocked;
    }
    return ImportDone;
}

// What a command has changed while the file was written is not in what was kept.
SFault CListStore::ReplaceList(const Lock& /*lock*/, const SProcessorAllNode& node, const SListCommand& command,
                               quint64 nEditKept, SNews& news)
{
    const SListReplacement replacement = processors.ReplaceList(node, command);
    if (replacement.fault.IsNone()) {
        own.Adopt(replacement.nEdit);
        news.listWarning += replacement.before.nEdit != nEditKept ? own.KeepEarlier(replacement.before) : QStringList();
        SetTrouble({}, news);
    }
    return replacement.fault;
}

SFault CListStore::TryUseRefused(const Lock& lock, const SListCommand& command, SNews& news)
{
    if (GetLoadError().isEmpty()) {
        return { ReasonNothingWasRefused, {} };
    }
    const SRefusedList list = ReadRefused(lock);
    if (!own.HoldsRefused()) {
        return { ReasonFileChanged, {} };
    }
    if (!list.bUsable) {
        return { ReasonFileUnreadable, list.listFault.value(0) };
    }
    const QByteArray bytes = ListFormat::Write(list.node);
    const QString strProof = ListFormat::FindProofFault(bytes, processors.GetLimits());
    if (!strProof.isEmpty()) {
        return { ReasonFileUnreadable, strProof };
    }
    const SListEdition edition = processors.GetEdition();
    const QByteArray bytesRefused = own.GetRefused();
    const QString strRefused = own.GetRefusedReason();
    SFault fault = own.ReplaceRefused(edition, bytes);
    if (!fault.IsNone()) {
        return fault;
    }
    fault = ReplaceList(lock, list.node, command, edition.nEdit, news);
    if (!fault.IsNone()) {
        own.RefuseAgain(bytesRefused, strRefused);
        return fault;
    }
    const Lock lockTrouble(mutexTrouble);
    strLoadError.clear();
    return {};
}

SRefusedList CListStore::ReadRefused(const Lock& /*lock*/) const
{
    const QString strError = GetLoadError();
    if (strError.isEmpty()) {
        return {};
    }
    const bool bThere = own.HoldsRefused();
    SRefusedList list = bThere ? ListSalvage::Read(own.GetRefused(), processors.GetLimits()) : SRefusedList();
    if (!bThere) {
        list.listFault.append(own.GetRefused().isNull() ? strError
                                                        : QStringLiteral("what stands there has changed since the start"));
    }
    list.strPath = GetPath();
    return list;
}

void CListStore::ReportFailure(EnListCommand command, const QString& strName, const SListSave& save, const QString& strLine)
{
    events.ReportRefusal({ command, {}, strName }, { GetReason(save), save.strReason }, strLine);
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
