#pragma once

#include "CorvidControl/file/CGenerations.h"
#include "CorvidControl/file/CListAside.h"
#include "CorvidControl/file/CListLock.h"
#include "CorvidControl/file/CListPlace.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/SFault.h"
#include "CorvidControl/list/SListEdition.h"

/// How writing at the list's own place went.
struct SListSave
{
    enum EnResult
    {
        Saved,
        LeftAlone,  ///< something stands there that is not to be overwritten, or another process writes there
        NotWritten, ///< no room, no rights, no lock; or the list itself could not be read again
        NotKept,    ///< as NotWritten, of the list before, which is to be kept first
        NotReplaced ///< the list is ready beside it, but what stands there could not be replaced
    };

    EnResult result = Saved;
    QString strReason;       ///< for any result but Saved: the file and why, in one line
    bool bSecured = true;    ///< what commands have changed is in a file: there, or in the dated one
    QStringList listWarning; ///< what failed besides, one line each
};

/// The list's own place with all that stands beside it: the lock, the earlier generations, the dated file.
/// Nothing is overwritten there but what was loaded or saved last, and nothing without the lock. Blocks
/// for the disk. For one thread at a time.
class COwnList
{
public:
    /// Touches no file before Load. clockIn must outlive it.
    COwnList(const QString& strPath, const SListLimits& limitsIn, const CControlClock& clockIn);

    /// For its paths. What stands there changes through this object only.
    const CListPlace& GetPlace() const
    {
        return place;
    }

    /// What stands there; an empty list when nothing does. What is not Valid is never overwritten.
    SListReading Load();

    /// As a save would find it now, with nothing to save. Takes the list's lock, and keeps it when it may write.
    SListSave Check();

    /// True when a file at strPath would take the list's own place, or that of a list that is to be left alone. None when that
    /// cannot be told of a file that is there. Takes the list's lock as Check does.
    std::optional<bool> IsHere(const QString& strPath);

    /// The edition is in memory because it was read or written here.
    void Adopt(quint64 nEdit);

    /// True when commands have changed the list since it was read or written here.
    bool IsEdited(quint64 nEdit) const;

    /// As IsEdited, and the change is not in the dated file either.
    bool IsUnsecured(quint64 nEdit) const;

    /// Writes the edition in its place, after keeping what stands there as a generation where one is due. What may not be
    /// overwritten is left alone, and the edition goes into the dated file.
    SListSave Save(const SListEdition& edition);

    /// Writes bytes, which were proven to be a list, in place of an edition, which is kept as a generation.
    SListSave Overwrite(const SListEdition& edition, const QByteArray& bytes);

    /// Writes the dated file. Returns its path, or an empty one with a line in strFault when that failed.
    QString SaveAside(const SListEdition& edition, QString& strFault);

    /// Keeps an edition that is about to be lost. Returns what failed, one line each.
    QStringList KeepEarlier(const SListEdition& edition);

    /// Why what stood there at the start was refused; empty when it was not.
    QString GetRefusedReason() const
    {
        return strRefused;
    }

    /// What stood there at the start and was refused, where it could be read at all; null without one.
    QByteArray GetRefused() const
    {
        return bytesRefused;
    }

    /// True when the very bytes stand there that were refused at the start.
    bool HoldsRefused() const;

    /// Writes bytes, which were proven to be a list, over what was refused at the start, which is kept first as it is in
    /// a dated file; the edition goes into another where commands have changed it. From then on the place is saved as any
    /// other. Where it returns a fault what stands there is as it was.
    SFault ReplaceRefused(const SListEdition& edition, const QByteArray& bytes);

    /// One of them is about to be taken back: it stays for as long as this object lives.
    void Spare(const QString& strPath)
    {
        generations.Spare(strPath);
    }

    /// After ReplaceRefused, where the list did not follow: bytes stand there again, and are refused for strReason.
    void RefuseAgain(const QByteArray& bytes, const QString& strReason);

    /// The paths of the earlier generations, the newest first.
    QStringList FindEarlier() const;

private:
    SFault TryReplaceRefused(const SListEdition& edition, const QByteArray& bytes);
    QString KeepRefused();
    SListSave TrySave(const SListEdition& edition, const QByteArray& bytes);
    SListSave Replace(const QByteArray& bytes);
    SListSave BuildFault(SListSave::EnResult result, const QString& strReason) const;
    QString KeepGeneration(const QByteArray& bytes);
    QStringList Prune() const;
    QString WriteAside(const QByteArray& bytes, QString& strFault);

    const SListLimits limits;
    CListPlace place;
    CListLock lockList;
    CListAside aside;
    CGenerations generations;
    const CControlClock& clock;
    QString strRefused; ///< why what stood there at the start was refused
    QByteArray bytesRefused;
    quint64 nEditSaved = 0; ///< the edition that was read or written here last
    quint64 nEditAside = 0; ///< the edition in the dated file
};
