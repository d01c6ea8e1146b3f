#pragma once

#include <QList>
#include <QString>
#include <QUuid>

#include <functional>
#include <mutex>

class CHostEvents;
class CSite;
struct SListReading;

/// The list and its files. A file is replaced as a whole or stays as it was, also when the process is
/// killed; what does not fit the format is refused as a whole, with the reason in the log. All
/// operations may be called on any thread.
class CListStore
{
public:
    enum EnExportResult
    {
        ExportDone = 0,
        ExportWorthless = 1,  ///< what was left there is no list: the panel may remove it
        ExportNotWritten = 6, ///< what was there before is still there
        ExportProtected = 7,  ///< the library's own file was refused at start and is not touched
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

    CListStore(CSite& siteNew, CHostEvents& eventsNew, const QString& strPath);

    /// Reads the library's own list, if there is one. False when it was refused, see GetLoadError.
    bool Load();
    QString GetLoadError() const
    {
        return strLoadError;
    }
    QString GetPath() const
    {
        return strOwnPath;
    }

    /// Why the list was not read or is not being saved, in one line; empty when all is well.
    QString GetTrouble() const;

    /// Saves at the own place. Empty, or one line with the reason why not.
    QString Save();

    /// Writes to a dated file beside the own place. Its path; empty with a line in strReason when that failed.
    QString SaveAside(QString& strReason);

    EnExportResult Export(const QString& strPath);
    EnImportResult Import(const QString& strPath);

private:
    QString TrySave();
    void SetTrouble(const QString& strTroubleNow);
    SListReading ReadFile(const QString& strPath) const;
    QString WriteProven(const QString& strPath, const QByteArray& bytes) const;
    QString WriteFile(const QString& strPath, const QByteArray& bytes) const;
    EnImportResult Overwrite(const QString& strPath, const QByteArray& bytes);

    CSite& site;
    CHostEvents& events;
    const QString strOwnPath;
    QString strLoadError; ///< set by Load, before anything else runs
    std::mutex mutexFile; ///< held while files are written

    mutable std::mutex mutexTrouble; ///< guards strTrouble; taken last and never held during a call
    QString strTrouble;
};
