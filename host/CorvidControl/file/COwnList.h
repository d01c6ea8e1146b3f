#pragma once

#include "CorvidControl/file/CGenerations.h"
#include "CorvidControl/file/CListAside.h"
#include "CorvidControl/file/CListLock.h"
#include "CorvidControl/file/CListPlace.h"
#include "CorvidControl/file/SListReading.h"
#include "CorvidControl/file/SListSave.h"
#include "CorvidControl/list/SListEdition.h"
#include "CorvidControl/list/SListLimits.h"

/// The list's own place with all that stands beside it: the lock, the earlier generations, the dated file.
/// Nothing is overwritten there but what was loaded or saved last, and nothing without the lock. Blocks
/// for the disk. For one thread at a time.
class COwnList
{
public:
    COwnList(const QString& strPath, const SListLimits& limitsIn, const CControlClock& clockIn);

    const CListPlace& GetPlace() const
    {
        return place;
    }

    /// What stands there; an empty list when nothing does. What is not Valid is never overwritten.
    SListReading Load();

    /// As a save would find it now, with nothing to save.
    SListSave Check();

    /// The edition is in memory because it was read or written here.
    void Adopt(quint64 nEdit);

    /// True when commands have changed the list since it was read or written here.
    bool IsEdited(quint64 nEdit) const;

    /// As IsEdited, and the change is not in the dated file either.
    bool IsUnsecured(quint64 nEdit) const;

    SListSave Save(const SListEdition& edition);

    /// Writes bytes, which were proven to be a list, in place of an edition, which is kept as a generation.
    SListSave Overwrite(const SListEdition& edition, const QByteArray& bytes);

    /// Writes the dated file. Its path; empty with a line in strFault when that failed.
    QString SaveAside(const SListEdition& edition, QString& strFault);

    /// Keeps an edition that is about to be lost. What failed, a line each.
    QStringList KeepEarlier(const SListEdition& edition);

private:
    SListSave TrySave(const SListEdition& edition, const QByteArray& bytes);
    SListSave Replace(const QByteArray& bytes);
    SListSave BuildFault(SListSave::EnResult result, const QString& strReason) const;
    QString KeepGeneration(const QByteArray& bytes, QStringList& listWarning);
    QString WriteAside(const QByteArray& bytes, QString& strFault);

    const SListLimits limits;
    CListPlace place;
    CListLock lockList;
    CListAside aside;
    CGenerations generations;
    QString strRefused;     ///< why what stood there at the start was refused
    quint64 nEditSaved = 0; ///< the edition that was read or written here last
    quint64 nEditAside = 0; ///< the edition in the dated file
};
