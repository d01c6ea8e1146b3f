#pragma once

#include "controlhost/ControlHostGlobal.h"
#include "controlhost/SControlOptions.h"
#include "controlhost/SEarlierList.h"
#include "controlhost/SListEdit.h"
#include "controlhost/SRefusal.h"
#include "controlhost/SRefusedList.h"
#include "controlhost/SRunningJob.h"

#include <QJsonArray>
#include <QObject>
#include <QStringList>

/// The control library as its application sees it: what an operator does outside the panel, and what lies behind the
/// eight objects. No part of the panel's contract: a library offers it by CorvidControl_CreateHost, and an application
/// does without where that is missing. All operations may be called on any thread, and none blocks but those
/// whose comment says so; signals come on the thread that caused the event, often a thread of the library.
///
/// @since 0.1
class CONTROLHOST_EXPORT IControlHost : public QObject
{
    Q_OBJECT

public:
    /// After the panel is gone: joins the threads of the library that it has started, and sets their eight pointers to null.
    ~IControlHost() override = default;

    /// Whether the options that it was made with count, and projects, modes and locks can be changed here. False: only
    /// what the eight objects say is known, and what would change more does nothing.
    virtual bool IsSteerable() const = 0;

    /// One line that names the list file and the reason why it was refused; empty when all is well. The
    /// list is then empty and the file is left alone: exports to it and imports are refused.
    virtual QString GetListError() const = 0;

    /// One line, why the list was not read or is not being saved; empty when all is well. It changes while
    /// the library runs: see ListTroubleChanged.
    virtual QString GetListTrouble() const = 0;

    /// Saves the list at its own place now, on the calling thread; blocks for the disk. Empty when what is
    /// on disk is the list as it stands, also when there was nothing new, and while GetListError is not empty and
    /// nothing was changed since; otherwise one line with the reason, and nothing was overwritten.
    virtual QString SaveList() = 0;

    /// Writes the list to a dated file beside its own place; blocks for the disk. Returns the file's path,
    /// or an empty one with a line in strReason when even that failed.
    virtual QString SaveListAside(QString& strReason) = 0;

    /// One line that names the scenario file and what is wrong in it; empty when all is well.
    virtual QString GetScenarioError() const = 0;

    /// The array under the key "ui" of the scenario, in the order of the file: for the application.
    virtual QJsonArray GetInterfaceMarks() const = 0;

    /// Begins the scenario, or the quiet day. Call it when the panel is on the screen; a second call does nothing. A panel
    /// that was made before it has had a message that makes it read, or gets one now.
    virtual void StartLife() = 0;

    /// Instead of the one that is open. Processors that answer and run it are in use from now on.
    virtual void OpenProject(const QString& strName) = 0;
    virtual void CloseProject() = 0;            ///< does nothing when none is open
    virtual QString GetProjectName() const = 0; ///< empty when no project is open

    virtual void SetChiefMode(bool bOn) = 0;           ///< Chief-Member mode: the panel draws Chief marks
    virtual bool IsChiefMode() const = 0;              ///< as it stands now
    virtual void SetListLocked(bool bLocked) = 0;      ///< every command but folding and selecting is refused
    virtual bool IsListLocked() const = 0;             ///< as it stands now
    virtual void SetRefreshBlocked(bool bBlocked) = 0; ///< scans are refused
    virtual bool IsRefreshBlocked() const = 0;         ///< as it stands now

    /// The Chief of a group of either pane, as a command of the user; null for none. Refused while the list is
    /// locked, and for a group or a member that is not there.
    virtual void SetChief(const QUuid& idGroup, const QUuid& idChief) = 0;

    /// False: the operations on lists below do nothing here, what they return is empty or false, and ListEdited and
    /// CommandRefused never come.
    virtual bool CanRestore() const = 0;

    /// The list as it stands.
    virtual SListSnapshot GetSnapshot() const = 0;

    /// Why RestoreList would be refused now; ReasonNone when it would not be. Its strLine is the reason alone.
    virtual SRefusal FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const = 0;

    /// Takes an edit back (from its after to its before), or makes it again (from its before to its after), or several in
    /// a row at once. What differs between the two is changed in the list as it stands, and nothing else: nodes that
    /// came since stay, so does what is folded and what devices have reported. A processor that comes back has what
    /// the library hears of it now. All or nothing: false, followed by CommandRefused, while the list is locked or a job is under
    /// way, where limits or addresses do not allow it, and where a processor that would go is in use. It is no ListEdited.
    virtual bool RestoreList(const SListSnapshot& from, const SListSnapshot& to) = 0;

    /// The generations kept beside the list, newest first; blocks for the disk, each is read and checked.
    virtual QList<SEarlierList> GetEarlierLists() const = 0;

    /// Makes one of them the list, as an import does: the present list is kept as a generation first, unless it is empty. Blocks
    /// for the disk. False, followed by CommandRefused, when it was not done.
    virtual bool TakeEarlierList(const QString& strPath) = 0;

    /// What can be read of the list that was refused at the start, see GetListError. Blocks for the disk.
    virtual SRefusedList PreviewRefusedList() const = 0;

    /// Makes that the list. The refused file is kept first, byte for byte, under a dated name beside it; from then on the
    /// list is saved at its own place, and GetListError and GetListTrouble are empty. Blocks for the disk. False, followed
    /// by CommandRefused, when it was not done: the file is then as it was.
    virtual bool UseRefusedList() = 0;

    virtual bool IsBusy() const = 0;                ///< a job of the panel is under way
    virtual QDateTime GetBusySince() const = 0;     ///< invalid when idle
    virtual QStringList GetRunningJobs() const = 0; ///< the blocking calls under way, oldest first, for display

    /// The same with how far they are.
    virtual QVector<SRunningJob> GetJobProgress() const = 0;

    /// What the user is in the middle of, so that no change takes it away. The control library holds its
    /// messages back meanwhile, but not for long; a true that is never taken back costs no more.
    ///
    /// An editor of a row is open in the panel: all messages that make it read wait, at most ten seconds
    /// from the first of them, and go when the editor closes.
    virtual void SetUserEditing(bool bOn) = 0;

    /// A mouse button is down, or a drag or a menu runs: messages about devices wait, at most two seconds.
    virtual void SetUserActing(bool bOn) = 0;

    /// A key, a button or the wheel, just now: messages about devices wait for 400 milliseconds without
    /// any, at most two seconds.
    virtual void NoteUserInput() = 0;

    /// A short English name for a message number, such as "DeleteFinished"; empty for an unknown one.
    virtual QString GetMessageName(int nMessage) const = 0;

signals:
    void BusyChanged(bool bBusy, const QDateTime& timeSince); ///< timeSince is invalid at the end
    void JobsChanged(const QStringList& listJob);             ///< as GetRunningJobs
    void JobProgressed(const QVector<SRunningJob>& vecJob);   ///< as GetJobProgress: one of them got further
    void ListTroubleChanged();                                ///< GetListTrouble has another answer
    void StateChanged();                                      ///< a project, a mode, a lock changed, by whomever
    void LogLine(const QString& strLine);                     ///< what failed or was refused, and why
    void LifeStep(const QString& strLine);                    ///< a step of the scenario or of the quiet day was taken

    /// A command of the user has changed the list: through the eight objects, SetChief, TakeEarlierList or UseRefusedList. In the
    /// order of the changes, on the thread of the command or of another that came just before or just after it:
    /// connect it queued. Never for what a scan has found, what devices report, steps of a scenario, folding, RestoreList.
    void ListEdited(const SListEdit& edit);

    /// A command of the user was refused or has failed. On the thread of the command, with no lock held.
    void CommandRefused(const SRefusal& refusal);
};

/// Creates the control library's eight objects, sets g_pConfigControl and its seven siblings, then reads the list
/// file. Never fails: see GetListError and GetScenarioError. The devices rest until StartLife. At most one host
/// exists at a time; the caller owns it. A library that exports this function is asked for it by this name. Null
/// when options.nVersion is not the one that the library was built with: nothing was created then.
///
/// @since 0.1
extern "C" Q_DECL_EXPORT IControlHost* CorvidControl_CreateHost(const SControlOptions& options);
