#include "contract/steps/StepOracles.h"

#include "contract/library/Trees.h"

namespace {

const SProcessorAllNode& Pane(const SReading& reading, const SStepRun& run)
{
    return reading.root[run.nPane];
}

QString Name(const SStepRun& run, const QUuid& id)
{
    return Trees::Describe(run.before, id);
}

QString Folded(bool bExpanded)
{
    return bExpanded ? QStringLiteral("unfolded") : QStringLiteral("folded");
}

// A name that was asked for and allowed is there; one that was not may be either.
QString JudgeName(const SStepRun& run)
{
    const SNode* pAfter = Trees::Find(Pane(run.after, run), run.id);
    if (!pAfter) {
        return QStringLiteral("%1 is gone from its pane").arg(Name(run, run.id));
    }
    const bool bOld = pAfter->strName == Trees::Find(Pane(run.before, run), run.id)->strName;
    if (pAfter->strName == run.strName || (bOld && !run.bAllowed)) {
        return {};
    }
    return QStringLiteral("%1 is called \"%2\" afterwards, not \"%3\"").arg(Name(run, run.id), pAfter->strName, run.strName);
}

// All that was there and was not to go is there, and what was to go is not.
QString JudgeGone(const SStepRun& run)
{
    for (int n = 0; n < SReading::nPanes; ++n) {
        const QList<QUuid> listBefore = Trees::GetIds(run.before.root[n]);
        for (const QUuid& id : listBefore) {
            if (!run.setGone.contains(id) && !Trees::Find(run.after.root[n], id)) {
                return QStringLiteral("%1 is gone too").arg(Name(run, id));
            }
        }
    }
    for (const QUuid& id : run.setGone) {
        if (run.bAllowed && Trees::FindPane(run.after, id) >= 0) {
            return QStringLiteral("%1 is still there").arg(Name(run, id));
        }
    }
    return {};
}

} // namespace

bool StepOracles::HasChangedSight(const SStepRun& run)
{
    return !Trees::LookAlike(run.before, run.after);
}

QString StepOracles::JudgeMessages(const SStepRun& run)
{
    return run.bMessage ? QString()
                        : QStringLiteral("what the panel shows has changed, and no message that makes it read came within 1 s");
}

QString StepOracles::JudgeStack(const SStepRun& run)
{
    return run.bOnCaller ? QStringLiteral("Notify was called on the stack of the caller") : QString();
}

QString StepOracles::JudgeStrayIds(const SStepRun& run)
{
    for (int n = 0; n < SReading::nPanes && run.verb == VerbStray; ++n) {
        const QList<QUuid> listBefore = Trees::GetIds(run.before.root[n]);
        for (const QUuid& id : listBefore) {
            const SNode* pAfter = Trees::Find(run.after.root[n], id);
            if (!pAfter) {
                return QStringLiteral("%1 is gone from its pane").arg(Name(run, id));
            }
            if (pAfter->strName != Trees::Find(run.before.root[n], id)->strName) {
                return QStringLiteral("%1 is called \"%2\" afterwards").arg(Name(run, id), pAfter->strName);
            }
        }
    }
    return {};
}

QString StepOracles::JudgePane(const SStepRun& run)
{
    if (run.verb != VerbPane || run.after.bSimulator == run.bOn) {
        return {};
    }
    return QStringLiteral("IsSimulatorPane does not answer what was set");
}

QString StepOracles::JudgeExpanded(const SStepRun& run)
{
    const SNode* pAfter = run.verb == VerbExpand ? Trees::Find(Pane(run.after, run), run.id) : nullptr;
    if (!pAfter || pAfter->bExpanded == run.bOn) {
        return {};
    }
    return QStringLiteral("%1 is %2 in the next tree").arg(Name(run, run.id), Folded(pAfter->bExpanded));
}

QString StepOracles::JudgeRootExpanded(const SStepRun& run)
{
    const int nOther = 1 - run.nPane;
    if (run.verb != VerbExpandRoot) {
        return {};
    }
    if (Pane(run.after, run).bExpanded != run.bOn) {
        return QStringLiteral("the root of the current pane is %1 in the next tree").arg(Folded(!run.bOn));
    }
    return run.after.root[nOther].bExpanded == run.before.root[nOther].bExpanded
        ? QString()
        : QStringLiteral("the root of the other pane is %1 now").arg(Folded(run.after.root[nOther].bExpanded));
}

QString StepOracles::JudgeAddGroup(const SStepRun& run)
{
    if (run.verb != VerbAddGroup || !run.bAllowed) {
        return {};
    }
    const SProcessorGroupNode* pGroup = Trees::FindGroup(Pane(run.after, run), run.id);
    if (!pGroup) {
        return QStringLiteral("no group of the current pane has the new id");
    }
    if (Trees::FindGroup(run.after.root[1 - run.nPane], run.id)) {
        return QStringLiteral("the group is in both panes");
    }
    if (!pGroup->listProcessor.isEmpty()) {
        return QStringLiteral("the new group is not empty");
    }
    return pGroup->strName == run.strName
        ? QString()
        : QStringLiteral("the group is called \"%1\", not \"%2\"").arg(pGroup->strName, run.strName);
}

QString StepOracles::JudgeRenameGroup(const SStepRun& run)
{
    return run.verb == VerbRenameGroup ? JudgeName(run) : QString();
}

QString StepOracles::JudgeRenameProcessor(const SStepRun& run)
{
    return run.verb == VerbRenameProcessor ? JudgeName(run) : QString();
}

QString StepOracles::JudgeMove(const SStepRun& run)
{
    if (run.verb != VerbMove && run.verb != VerbMoveToRoot) {
        return {};
    }
    if (!Trees::Find(Pane(run.after, run), run.id)) {
        return QStringLiteral("%1 is gone from its pane").arg(Name(run, run.id));
    }
    const QUuid idNow = Trees::FindGroupOf(Pane(run.after, run), run.id);
    if (idNow == run.idGroup || !run.bAllowed) {
        return {};
    }
    return QStringLiteral("%1 is in %2 afterwards, not in %3").arg(Name(run, run.id), Name(run, idNow), Name(run, run.idGroup));
}

QString StepOracles::JudgeDeleteGroup(const SStepRun& run)
{
    return run.verb == VerbDeleteGroup ? JudgeGone(run) : QString();
}

QString StepOracles::JudgeDissolve(const SStepRun& run)
{
    constexpr std::chrono::milliseconds timeMost{ 500 };
    if (run.verb != VerbDissolve) {
        return {};
    }
    if (run.time > timeMost) {
        return QStringLiteral("the call took %1 ms").arg(run.time.count());
    }
    const QString strFault = JudgeGone(run);
    for (const QUuid& id : run.vecId) {
        const QUuid idNow = Trees::FindGroupOf(Pane(run.after, run), id);
        if (strFault.isEmpty() && run.bAllowed && !idNow.isNull()) {
            return QStringLiteral("%1 is in %2 afterwards, not at the root").arg(Name(run, id), Name(run, idNow));
        }
    }
    return strFault;
}

QString StepOracles::JudgeDeleteProcessor(const SStepRun& run)
{
    return run.verb == VerbDeleteProcessor ? JudgeGone(run) : QString();
}
