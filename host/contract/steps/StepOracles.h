#pragma once

#include "contract/steps/CStepRunner.h"

/// What must hold after a step, one promise each: the sentence that says what is wrong, empty for nothing. None looks
/// at what another is about.
namespace StepOracles {

QString JudgeMessages(const SStepRun& run);
QString JudgeStack(const SStepRun& run);
QString JudgeStrayIds(const SStepRun& run);

QString JudgePane(const SStepRun& run);
QString JudgeExpanded(const SStepRun& run);
QString JudgeRootExpanded(const SStepRun& run);
QString JudgeAddGroup(const SStepRun& run);
QString JudgeRenameGroup(const SStepRun& run);
QString JudgeRenameProcessor(const SStepRun& run);
QString JudgeMove(const SStepRun& run);
QString JudgeDeleteGroup(const SStepRun& run);
QString JudgeDissolve(const SStepRun& run);
QString JudgeDeleteProcessor(const SStepRun& run);

QString JudgeSelection(const SStepRun& run);
QString JudgeSelectionOrder(const SStepRun& run);
QString JudgeOtherSelection(const SStepRun& run);
QString JudgeSelectedRoot(const SStepRun& run);

QString JudgeIds(const SStepRun& run);
QString JudgeCarried(const SStepRun& run);
QString JudgeOrder(const SStepRun& run);

/// What a step must have done for some of these to be worth something.
bool HasChangedSight(const SStepRun& run);
bool HasSelected(const SStepRun& run);
bool HasSelectedSeveral(const SStepRun& run); ///< and all of them came back

} // namespace StepOracles
