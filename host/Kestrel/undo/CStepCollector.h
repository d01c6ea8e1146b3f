#pragma once

#include "Kestrel/undo/SUndoStep.h"

#include <QObject>

#include <optional>

/// Groups commands into steps: the deletions of one job, the moves of one drop, a group and what was moved into it. One
/// step grows at a time, so that steps have the order of the changes: a command in the middle of a job parts the job's
/// deletions. Commands between which nothing else has changed the list share one pair of snapshots. One thread.
class CStepCollector : public QObject
{
    Q_OBJECT

public:
    void TakeEdit(const SListEdit& edit);

    /// Jobs of the panel are under way or have all ended, which closes the step of a job's deletions.
    void SetBusy(bool bBusyNow);

    /// What comes now is another command of the user.
    void EndTurn();

signals:
    void StepReady(const SUndoStep& step); ///< complete
    void StepBegun(quint64 nJob);          ///< by a command that belongs to no step before, of that SListEdit::nJob

private:
    void Close();

    std::optional<SUndoStep> step; ///< that grows
    quint64 nJob = 0;              ///< whose deletions it takes; 0: it ends with the turn
    bool bBusy = false;
};
