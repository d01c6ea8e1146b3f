#pragma once

#include "CorvidControl/objects/SControlOptions.h"
#include "interfaces/control/CorvidControlGlobal.h"

#include <QDateTime>
#include <QJsonArray>
#include <QObject>
#include <QStringList>

#include <memory>

class CControlLibrary;

/// The control library as its application sees it: start, stop, and what an operator does outside the
/// panel. At most one exists at a time. All operations may be called on any thread, and none blocks but
/// the two that save; signals come on the thread that caused the event, often a thread of the library.
class CORVIDCONTROL_EXPORT CControlHost : public QObject
{
    Q_OBJECT

public:
    /// Creates the eight objects and sets g_pConfigControl and its seven siblings, then reads the list
    /// file. Never fails: see GetListError and GetScenarioError. The devices rest until StartLife.
    static std::unique_ptr<CControlHost> Start(const SControlOptions& options);

    /// After the panel is gone: joins the library's threads and sets the eight pointers to null.
    ~CControlHost() override;

    /// One line that names the list file and the reason why it was refused; empty when all is well. The
    /// list is then empty and the file is left alone: exports to it and imports are refused.
    QString GetListError() const;

    /// One line, why the list was not read or is not being saved; empty when all is well. It changes while
    /// the library runs: see ListTroubleChanged.
    QString GetListTrouble() const;

    /// Saves the list at its own place now, on the calling thread; blocks for the disk. Empty when what is
    /// on disk is the list as it stands, also when there was nothing new; otherwise one line with the
    /// reason, and nothing was overwritten.
    QString SaveList();

    /// Writes the list to a dated file beside its own place; blocks for the disk. Returns the file's path,
    /// or an empty one with a line in strReason when even that failed.
    QString SaveListAside(QString& strReason);

    /// One line that names the scenario file and what is wrong in it; empty when all is well.
    QString GetScenarioError() const;

    /// The array under the key "ui" of the scenario, in the order of the file: for the application.
    QJsonArray GetInterfaceMarks() const;

    /// Begins the scenario, or the quiet day. Call it when the panel is on the screen; a second call does nothing.
    void StartLife();

    /// Milliseconds since StartLife; 0 before it.
    qint64 GetLifeTime() const;

    /// Instead of the one that is open. Processors that answer and run it are in use from now on.
    void OpenProject(const QString& strName);
    void CloseProject();            ///< does nothing when none is open
    QString GetProjectName() const; ///< empty when no project is open

    void SetChiefMode(bool bOn);           ///< Chief-Member mode: the panel draws Chief marks
    bool IsChiefMode() const;              ///< off at first
    void SetListLocked(bool bLocked);      ///< every command but folding and selecting is refused
    bool IsListLocked() const;             ///< off at first
    void SetRefreshBlocked(bool bBlocked); ///< scans are refused
    bool IsRefreshBlocked() const;         ///< off at first

    bool IsBusy() const;                ///< a job of the panel is under way
    QDateTime GetBusySince() const;     ///< invalid when idle
    QStringList GetRunningJobs() const; ///< the blocking calls under way, oldest first, for display

    /// What the user is in the middle of, so that no change takes it away. The control library holds its
    /// messages back meanwhile, but not for long; a true that is never taken back costs no more.
    ///
    /// An editor of a row is open in the panel: all messages that make it read wait, at most ten seconds
    /// from the first of them, and go when the editor closes.
    void SetUserEditing(bool bOn);

    /// A mouse button is down, or a drag or a menu runs: messages about devices wait, at most two seconds.
    void SetUserActing(bool bOn);

    /// A key, a button or the wheel, just now: messages about devices wait for 400 milliseconds without
    /// any, at most two seconds.
    void NoteUserInput();

    /// A short English name for a message number, such as "DeleteFinished"; empty for an unknown one.
    static QString GetMessageName(int nMessage);

signals:
    void BusyChanged(bool bBusy, const QDateTime& timeSince); ///< timeSince is invalid at the end
    void JobsChanged(const QStringList& listJob);             ///< as GetRunningJobs
    void ListTroubleChanged();                                ///< GetListTrouble has another answer
    void StateChanged();                                      ///< a project, a mode, a lock changed, by whomever
    void LogLine(const QString& strLine);                     ///< what failed or was refused, and why
    void LifeStep(const QString& strLine);                    ///< a step of the scenario or of the quiet day was taken
    void ScenarioFinished();                                  ///< the last step of the scenario was taken

private:
    explicit CControlHost(std::unique_ptr<CControlLibrary> pLibraryIn);
    std::unique_ptr<CControlLibrary> pLibrary;
};
