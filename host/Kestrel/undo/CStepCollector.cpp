#include "Kestrel/undo/CStepCollector.h"

namespace {

// A group that goes alone is among them: the panel's own deletion does that too.
bool IsDeletion(EnListCommand command)
{
    return command == CommandDelete || command == CommandDeleteGroup || command == CommandUngroup;
}

bool Joins(const SUndoStep& step, const SListEdit& edit)
{
    switch (step.command) {
    case CommandAddGroup:
        return edit.command == CommandMove;
    case CommandMove:
    case CommandAddSimulators:
        return edit.command == step.command;
    default:
        return IsDeletion(step.command) && IsDeletion(edit.command);
    }
}

void AddPair(SUndoStep& step, const SListEdit& edit)
{
    if (!step.listPair.isEmpty() && step.listPair.constLast().after.nEdition == edit.before.nEdition) {
        step.listPair.last().after = edit.after;
    } else {
        step.listPair.append({ edit.before, edit.after });
    }
}

void Add(SUndoStep& step, const SListEdit& edit)
{
    if (step.nCommands++ == 0) {
        step.command = edit.command;
        step.strName = edit.strName;
    }
    if (step.command == CommandAddGroup && edit.command == CommandMove) {
        step.bMembers = true;
    }
    if (edit.command != CommandAddGroup) {
        step.nNodes += edit.nNodes;
    }
    step.bUngroupOnly = step.bUngroupOnly && edit.command == CommandUngroup;
    AddPair(step, edit);
}

} // namespace

void CStepCollector::TakeEdit(const SListEdit& edit)
{
    const bool bJob = bBusy && edit.nJob != 0 && IsDeletion(edit.command);
    const quint64 nJobOfEdit = bJob ? edit.nJob : 0;
    if (step && (nJobOfEdit != nJob || !Joins(*step, edit))) {
        Close();
    }
    if (!step) {
        step.emplace();
        nJob = nJobOfEdit;
        emit StepBegun(edit.nJob);
    }
    Add(*step, edit);
}

void CStepCollector::SetBusy(bool bBusyNow)
{
    bBusy = bBusyNow;
    if (!bBusy && nJob != 0) {
        Close();
    }
}

void CStepCollector::EndTurn()
{
    if (nJob == 0) {
        Close();
    }
}

void CStepCollector::Close()
{
    nJob = 0;
    if (step) {
        const SUndoStep stepDone = *step;
        step.reset();
        emit StepReady(stepDone);
    }
}
