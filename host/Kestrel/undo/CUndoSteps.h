#pragma once

#include "Kestrel/undo/CStepCollector.h"
#include "controlhost/SRefusal.h"

#include <QUndoStack>

class CStepCommand;
class IControlHost;

/// What the user can take back and do again: the last hundred steps. The list itself is changed by the control library,
/// from snapshots that the steps keep.
///
/// Memory: a step holds two snapshots for each run of its commands between which nothing else changed the list, so two
/// as a rule, and never more than two a command. A snapshot shares what did not change; one of 256 processors that
/// shares nothing takes less than 100 KB, so a hundred steps of one run stay below 20 MB.
///
/// A step that the library refuses to take back stays where it is, since the reason may pass. When it was refused twice
/// in a row for a reason that does not pass by itself, IsStuck says so: Skip leaves it out for good, and the steps before it are
/// in reach again. GUI thread.
class CUndoSteps : public QObject
{
    Q_OBJECT

public:
    static constexpr int nMostSteps = 100;

    /// controlHost must outlive it.
    explicit CUndoSteps(IControlHost& controlHost);

    /// Why nothing may be done now: a lock or a job; ReasonNone when it may.
    EnRefusalReason GetHindrance() const;
    bool IsAllowed() const;

    /// False as well while it is not allowed.
    bool CanUndo() const;
    bool CanRedo() const;

    /// What would be taken back or done again, in the present language; empty when there is nothing.
    QString GetUndoName() const;
    QString GetRedoName() const;

    void Undo(); ///< refused: see RestoreRefused
    void Redo(); ///< as Undo

    /// The step that Undo was refused twice.
    bool IsStuck() const;

    /// Forgets the step that IsStuck means; the list stays as it is.
    void Skip();

    /// Only looks: each input of the user is the end of the commands before it.
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void Changed(); ///< what the questions above answer

    /// A command of the user, of that SListEdit::nJob, has changed the list, or its undo, with 0.
    void CommandDone(quint64 nJob);

    /// The reason is in refusal; bRedo says which way it was to go.
    void RestoreRefused(const SUndoStep& step, bool bRedo, const SRefusal& refusal);

private:
    void SetConnection();
    void TakeEdit(const SListEdit& edit);
    void EndTurnSoon();
    void TakePending();
    void Push(const SUndoStep& step);
    CStepCommand* GetCommand(int nIndex) const;
    bool Restore(SUndoStep step, bool bRedo);
    bool RestorePair(const SUndoStep::SPair& pair, bool bRedo);
    void NoteRefusal(CStepCommand& command, bool bRedo);

    IControlHost& host;
    QUndoStack stack;
    CStepCollector collector;
    SRefusal refusalLast;   ///< of the last RestorePair that was refused
    bool bTurnOpen = false; ///< its end is posted
};
