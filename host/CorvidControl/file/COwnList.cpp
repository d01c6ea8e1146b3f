#include "CorvidControl/file/COwnList.h"

#include "CorvidControl/file/DatedFile.h"
#include "CorvidControl/file/ListFormat.h"

#include <algorithm>

COwnList::COwnList(const QString& strPath, const SListLimits& limitsIn, const CControlClock& clockIn)
    : limits(limitsIn), place(strPath, limits.nBytes), aside(clockIn, limits.nBytes), generations(clockIn), clock(clockIn)
{ }

SListReading COwnList::Load()
{
    // The lock before the list, so that what is read is what its last holder left.
    lockList.Take(place.GetRealPath());
    const SFileContent content = place.Load();
    SListReading reading;
    if (content.kind == SFileContent::Read) {
        reading = ListFormat::Read(content.bytes, limits, ListFormat::NamesMended);
    } else {
        reading.verdict = content.kind == SFileContent::Absent ? SListReading::Valid : SListReading::Invalid;
        reading.strReason = content.strReason;
    }
    strRefused = reading.strReason;
    if (reading.verdict != SListReading::Valid) {
        place.Forget();
        bytesRefused = content.bytes;
    }
    return reading;
}

// Whoever may not write releases the lock: another process may have loaded what stands there.
SListSave COwnList::Check()
{
    const CListLock::EnState state = lockList.Take(place.GetRealPath());
    if (state == CListLock::Elsewhere) {
        return BuildFault(SListSave::LeftAlone, lockList.GetReason());
    }
    const QString strObstacle = place.FindObstacle();
    if (!strObstacle.isEmpty()) {
        lockList.Release();
        return BuildFault(SListSave::LeftAlone, strRefused.isEmpty() ? strObstacle : strRefused);
    }
    return state == CListLock::Held ? SListSave() : BuildFault(SListSave::NotWritten, lockList.GetReason());
}

// The own place counts in every spelling, and so does a second name of the own file where that is not ours.
std::optional<bool> COwnList::IsHere(const QString& strPath)
{
    const std::optional<bool> bSameFile = FileAccess::IsSameFile(strPath, place.GetPath());
    const std::optional<bool> bSamePlace = FileAccess::IsSamePlace(strPath, place.GetPath());
    if (bSamePlace.value_or(false)) {
        return true;
    }
    if (bSameFile && bSamePlace) {
        return *bSameFile && Check().result == SListSave::LeftAlone;
    }
    const bool bNothing = FileAccess::Read(strPath, limits.nBytes).kind == SFileContent::Absent;
    return bNothing ? std::make_optional(false) : std::nullopt;
}

void COwnList::Adopt(quint64 nEdit)
{
    nEditSaved = nEdit;
}

bool COwnList::IsEdited(quint64 nEdit) const
{
    return nEdit != nEditSaved;
}

bool COwnList::IsUnsecured(quint64 nEdit) const
{
    return IsEdited(nEdit) && (nEdit != nEditAside || aside.GetPath().isEmpty());
}

SListSave COwnList::Save(const SListEdition& edition)
{
    const QByteArray bytes = ListFormat::Write(edition.node);
    SListSave save = TrySave(edition, bytes);
    if (save.result == SListSave::Saved) {
        nEditSaved = edition.nEdit;
        strRefused.clear();
        return save;
    }
    if (save.result == SListSave::LeftAlone && IsEdited(edition.nEdit)) {
        QString strFault;
        const QString strKept = SaveAside(edition, strFault);
        save.strReason += strKept.isEmpty() ? QStringLiteral(". It could not be kept beside it either: ") + strFault
                                            : QStringLiteral(". It is kept in ") + strKept;
    }
    save.bSecured = !IsUnsecured(edition.nEdit);
    return save;
}

SListSave COwnList::Overwrite(const SListEdition& edition, const QByteArray& bytes)
{
    SListSave save = Check();
    if (save.result != SListSave::Saved) {
        return save;
    }
    const bool bAnything = !edition.node.listGroup.isEmpty() || !edition.node.listProcessor.isEmpty();
    const QString strFault = bAnything ? KeepGeneration(ListFormat::Write(edition.node)) : QString();
    if (!strFault.isEmpty()) {
        return BuildFault(SListSave::NotKept, strFault);
    }
    save = Replace(bytes);
    if (save.result == SListSave::Saved && bAnything) { // not sooner: an old one may be what is being written
        save.listWarning = Prune();
    }
    return save;
}

QString COwnList::SaveAside(const SListEdition& edition, QString& strFault)
{
    const QString strPath = WriteAside(ListFormat::Write(edition.node), strFault);
    if (!strPath.isEmpty()) {
        nEditAside = edition.nEdit;
    }
    return strPath;
}

// Where the place is not ours the earlier generations beside it are not either: there the dated file stays
// as it is, and what follows goes into a new one.
QStringList COwnList::KeepEarlier(const SListEdition& edition)
{
    QStringList listWarning;
    QString strFault;
    if (Check().result == SListSave::Saved) {
        strFault = KeepGeneration(ListFormat::Write(edition.node));
        listWarning = Prune();
    } else if (IsEdited(edition.nEdit) && !SaveAside(edition, strFault).isEmpty()) {
        aside.StartNew();
    }
    if (!strFault.isEmpty()) {
        listWarning.append(QStringLiteral("An earlier list could not be kept. ") + strFault);
    }
    return listWarning;
}

bool COwnList::HoldsRefused() const
{
    const SFileContent content = FileAccess::Read(place.GetPath(), limits.nBytes);
    return content.kind == SFileContent::Read && content.bytes == bytesRefused;
}

SFault COwnList::ReplaceRefused(const SListEdition& edition, const QByteArray& bytes)
{
    const CListLock::EnState state = lockList.Take(place.GetRealPath());
    if (state != CListLock::Held) {
        return { state == CListLock::Elsewhere ? ReasonFileHeld : ReasonFileNotWritten, lockList.GetReason() };
    }
    const SFault fault = TryReplaceRefused(edition, bytes);
    if (!fault.IsNone()) {
        place.Forget();
        lockList.Release();
        return fault;
    }
    strRefused.clear();
    bytesRefused.clear();
    aside.StartNew();
    return {};
}

void COwnList::RefuseAgain(const QByteArray& bytes, const QString& strReason)
{
    Replace(bytes);
    place.Forget();
    lockList.Release();
    strRefused = strReason;
    bytesRefused = bytes;
}

QStringList COwnList::FindEarlier() const
{
    QStringList listPath = DatedFile::Find(place.GetRealPath(), {}, clock.GetDate());
    std::reverse(listPath.begin(), listPath.end());
    return listPath;
}

// With the lock. Each step leaves what the one before has kept.
SFault COwnList::TryReplaceRefused(const SListEdition& edition, const QByteArray& bytes)
{
    if (!HoldsRefused()) {
        return { ReasonFileChanged, {} };
    }
    QString strFault;
    if (IsUnsecured(edition.nEdit) && SaveAside(edition, strFault).isEmpty()) {
        return { ReasonFileNotKept, strFault };
    }
    strFault = KeepRefused();
    if (!strFault.isEmpty()) {
        return { ReasonFileNotKept, strFault };
    }
    place.Adopt(bytesRefused); // it may be overwritten, if it still stands there
    const SListSave save = Replace(bytes);
    if (save.result == SListSave::Saved) {
        return {};
    }
    return { save.result == SListSave::NotWritten ? ReasonFileNotWritten : ReasonFileNotReplaced, save.strReason };
}

// Once, however often it is tried. The fault; empty when it is kept.
QString COwnList::KeepRefused()
{
    const QString strPath = place.GetRealPath();
    const QString strMark = QStringLiteral("refused-");
    const QStringList listKept = DatedFile::Find(strPath, strMark, clock.GetDate());
    if (!listKept.isEmpty() && FileAccess::Read(listKept.last(), limits.nBytes).bytes == bytesRefused) {
        return {};
    }
    QString strFault;
    return DatedFile::Write(strPath, strMark, clock.GetDate(), bytesRefused, strFault).isEmpty() ? strFault : QString();
}

SListSave COwnList::TrySave(const SListEdition& edition, const QByteArray& bytes)
{
    SListSave save = Check();
    if (save.result != SListSave::Saved || place.Holds(bytes)) {
        return save;
    }
    // A list that the next start would refuse must not take the place of a good one.
    const QString strFault = ListFormat::FindProofFault(bytes, limits);
    if (!strFault.isEmpty()) {
        return BuildFault(SListSave::NotWritten, strFault);
    }
    const bool bDue = IsEdited(edition.nEdit) && !place.GetKnown().isEmpty() && generations.IsDue(place.GetRealPath());
    const QString strKeepFault = bDue ? KeepGeneration(place.GetKnown()) : QString();
    save = Replace(bytes);
    if (save.result == SListSave::Saved && bDue) {
        save.listWarning = Prune();
    }
    if (save.result == SListSave::Saved && !strKeepFault.isEmpty()) { // else it is still in its place
        save.listWarning.append(QStringLiteral("An earlier list could not be kept. ") + strKeepFault);
    }
    return save;
}

SListSave COwnList::Replace(const QByteArray& bytes)
{
    QString strFault;
    switch (place.Replace(bytes, strFault)) {
    case CListPlace::Placed:
        return {};
    case CListPlace::LeftAlone:
        return BuildFault(SListSave::LeftAlone, strFault);
    case CListPlace::NotReplaced:
        return BuildFault(SListSave::NotReplaced, strFault);
    case CListPlace::NotWritten:
        break;
    }
    return BuildFault(SListSave::NotWritten, strFault);
}

SListSave COwnList::BuildFault(SListSave::EnResult result, const QString& strReason) const
{
    SListSave save;
    save.result = result;
    save.strReason = place.GetPath() + QStringLiteral(": ") + strReason;
    return save;
}

// The fault; empty when it is kept.
QString COwnList::KeepGeneration(const QByteArray& bytes)
{
    return generations.Keep(place.GetRealPath(), bytes);
}

QStringList COwnList::Prune() const
{
    QStringList listWarning;
    const QStringList listFault = generations.Prune(place.GetRealPath());
    for (const QString& strFault : listFault) {
        listWarning.append(QStringLiteral("An old generation could not be removed. ") + strFault);
    }
    return listWarning;
}

// Where the user looks for the list; where nothing can be written, behind the link that leads to the file.
QString COwnList::WriteAside(const QByteArray& bytes, QString& strFault)
{
    const QString strReal = place.GetRealPath();
    const bool bWritten = aside.Write(place.GetPath(), bytes, strFault)
        || (!strReal.isEmpty() && strReal != place.GetPath() && aside.Write(strReal, bytes, strFault));
    return bWritten ? aside.GetPath() : QString();
}
