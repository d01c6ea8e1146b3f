#pragma once

#include "Kestrel/undo/SUndoStep.h"

#include <QObject>

#include <optional>

/// Groups commands into steps: the deletions of one busy state, the moves of one drop, a group and what was moved into
/// it. Commands between which nothing else has changed the list share one pair of snapshots. One thread.
class CStepCollector : public QObject
{
    Q_OBJECT

public:
    void TakeEdit(const SListEdit& edit);

    /// A job of the panel begins or ends; its end closes the step of its deletions.
    void SetBusy(bool bBusyNow);

    /// What comes now is another command of the user.
    void EndTurn();

signals:
    void StepReady(const SUndoStep& step); ///< complete
    void StepBegun();                      ///< by a command that belongs to no step before

private:
    void Close(std::optional<SUndoStep>& step);

    std::optional<SUndoStep> stepTurn; ///< that grows in this turn
    std::optional<SUndoStep> stepJob;  ///< that grows until the end of the busy state
    bool bBusy = false;
};
