#pragma once

#include "CorvidControl/file/COwnList.h"
#include "controlhost/EnListCommand.h"
#include "controlhost/SEarlierList.h"
#include "controlhost/SRefusedList.h"

#include <mutex>

class CHostEvents;
class CJobs;
class CProcessorList;
struct SListCommand;

/// The list and its files. A file is replaced as a whole or stays as it was, also when the process is
/// killed; what does not fit the format is refused as a whole, with the reason in the log. What happens at
/// the list's own place is COwnList's. All operations may be called on any thread; those that read or
/// write block for the disk, and for each other.
class CListStore
{
public:
    enum EnExportResult
    {
        ExportDone = 0,
        ExportNotWritten = 6, ///< what was there before is still there
        ExportLeftAlone = 7,  ///< so is what stands at the own place and was neither loaded nor saved last
    };

    enum EnImportResult
    {
        ImportDone = 0,
        ImportInvalid = 2,
        ImportNotOverwritten = 3,
        ImportNotCopied = 4,
        ImportTooLarge = 5,
        ImportLocked = 6,
    };

    /// strPath: the list's own place. All references must outlive the store.
    CListStore(CProcessorList& processorsIn, CJobs& jobsIn, CHostEvents& eventsIn, const QString& strPath,
               const CControlClock& clockIn = CControlClock::GetSystem());

    /// Reads the library's own list, if there is one. Returns false when it was refused, see
    /// GetLoadError; the list is then empty. Once, before the list is changed.
    bool Load();

    /// One line with the file and the reason; empty when Load has found a good list or none, and after a save or UseRefused.
    QString GetLoadError() const;

    /// The own place, absolute, as it was named.
    QString GetPath() const
    {
        return own.GetPlace().GetPath();
    }

    /// Why the list was not read or is not being saved, in one line; empty when all is well. Does not block.
    QString GetTrouble() const;

    /// Saves at the own place. Returns an empty text when the list is there, or when no command has changed it since it was;
    /// otherwise one line with the reason.
    QString Save();

    /// As Save, when a command has changed the list. Returns false when that has to be tried again.
    bool SaveSoon();

    /// Writes to a dated file beside the own place. Returns its path; empty with a line in strReason when that
    /// failed.
    QString SaveAside(QString& strReason);

    /// Keeps a list that is about to be lost as an earlier generation.
    void KeepEarlier(const SListEdition& edition);

    /// Writes the Discovered list over any other file at strPath; at the own place, in every spelling, as Save.
    EnExportResult Export(const QString& strPath);

    /// Replaces the Discovered list and the file at the own place by the list at strPath, after the list before was
    /// kept; what is heard of the processors stays. For any result but ImportDone list and files stay, a line is logged and a
    /// message sent. CJobs hears of it, as of the two below.
    EnImportResult Import(const QString& strPath, EnListCommand command = CommandImport);

    /// The earlier generations, the newest first, each read and checked.
    QList<SEarlierList> FindEarlier() const;

    /// As Import, of one of them. False when list and files stay.
    bool TakeEarlier(const QString& strPath);

    /// What can be read of what Load has refused.
    SRefusedList PreviewRefused() const;

    /// Makes that the list and saves it at the own place, after what stands there was kept in a dated file. False when
    /// list and file stay; a line is logged then and a message sent.
    bool UseRefused();

private:
    using Lock = std::lock_guard<std::mutex>; ///< whoever takes one as a parameter works under mutexFile

    /// What is to be announced when no lock is held any more.
    struct SNews
    {
        QStringList listWarning;
        bool bTrouble = false; ///< it is another than before
    };

    SFault ReplaceList(const Lock& lock, const SProcessorAllNode& node, const SListCommand& command, quint64 nEditKept,
                       SNews& news);
    SListSave SaveHere(const Lock& lock, SNews& news, bool bAlways);
    SListSave ExportElsewhere(const Lock& lock, const QString& strPath, bool bUnclear, SNews& news) const;
    EnImportResult TryImport(const Lock& lock, const SListCommand& command, SFault& fault, SNews& news);
    SFault TryUseRefused(const Lock& lock, const SListCommand& command, SNews& news);
    SRefusedList ReadRefused(const Lock& lock) const;
    void ReportFailure(EnListCommand command, const QString& strName, const SListSave& save, const QString& strLine);
    void SetTrouble(const QString& strTroubleNow, SNews& news);
    void Announce(const SNews& news);

    CProcessorList& processors;
    CJobs& jobs;
    CHostEvents& events;

    mutable std::mutex mutexFile; ///< guards own; held while files are read and written, never while anything is announced
    COwnList own;

    mutable std::mutex mutexTrouble; ///< guards both below; taken last
    QString strTrouble;
    QString strLoadError;
};
