#pragma once

#include "Kestrel/journal/CJournalTrouble.h"
#include "journal/guard/CGuiGuard.h"
#include "journal/recording/CJournalRecorder.h"
#include "journal/recording/CJournalWriter.h"

class CCallLog;
class CCrashFlush;
class CEditJournal;
class CInputJournal;
class CLanguage;
class CMainWindow;
class CPopupJournal;
class CReportSaver;
class CScreenJournal;
class CTheme;
struct SControlPointers;
struct SKestrelOptions;

/// The journal of this run of the program, always on: calls, messages and notes from the log, what the user does, what holds
/// the GUI thread; in a folder beside the list. GUI thread.
class CRunJournal
{
public:
    /// optionsIn must outlive it.
    explicit CRunJournal(const SKestrelOptions& optionsIn);
    ~CRunJournal();
    Q_DISABLE_COPY(CRunJournal)

    /// Gets everything that goes through the log from now on; it waits until Open. Must outlive the log.
    void Listen(CCallLog& log);

    /// Begins to write, beside the list that the control library names.
    void Open(const SControlPointers& pointers, const CLanguage& language, const CTheme& theme);

    /// The window with its panel: what the user does there, its menu entry and its fields of the status bar. The event loop is
    /// watched as soon as it runs. All three must live until Leave.
    void Follow(CMainWindow& window, const CLanguage& language, const CTheme& theme);

    /// No event loop runs any more, and the panel goes.
    void Leave();

    /// The folder for the journal of a list; that of the program's own data where the control library names none.
    static QString GetFolder(const QString& strListFile);

private:
    std::vector<SJournalField> GetHeader(const QString& strListFile) const;
    QStringList GetArguments() const;
    void ShowState(const CMainWindow& window);
    void FollowEnd(const CMainWindow& window);

    const SKestrelOptions& options;
    CJournalTrouble trouble; ///< outlives the writer, whose thread sets it
    CJournalWriter writer;
    CJournalRecorder recorder{ writer };
    CGuiGuard guard{ recorder };
    QString strList; ///< the list's file
    std::unique_ptr<CCrashFlush> pCrashFlush;
    std::unique_ptr<CInputJournal> pInput;
    std::unique_ptr<CEditJournal> pEdits;
    std::unique_ptr<CPopupJournal> pPopups;
    std::unique_ptr<CScreenJournal> pScreen;
    std::unique_ptr<CReportSaver> pReport;
};
