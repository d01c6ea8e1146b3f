#include "Kestrel/undo/StepName.h"

#include "Kestrel/undo/SUndoStep.h"

#include <QCoreApplication>

namespace {

/// The texts have a context of their own.
class CStepText
{
    Q_DECLARE_TR_FUNCTIONS(StepName)

public:
    static QString Deletion(const SUndoStep& step);
    static QString Ungroup(const SUndoStep& step);
    static QString OfMany(const SUndoStep& step);
    static QString OfOne(const SUndoStep& step);
};

struct SCount
{
    int nGroups = 0;
    int nProcessors = 0;
};

void Count(SCount& count, const SProcessorAllNode& node, int nSign)
{
    count.nGroups += nSign * node.listGroup.size();
    count.nProcessors += nSign * node.listProcessor.size();
    for (const SProcessorGroupNode& group : node.listGroup) {
        count.nProcessors += nSign * group.listProcessor.size();
    }
}

// What was deleted in between by others is in no pair.
SCount GetGone(const SUndoStep& step)
{
    SCount gone;
    for (const SUndoStep::SPair& pair : step.listPair) {
        for (const SProcessorAllNode* pNode : { &pair.before.discovered, &pair.before.simulators }) {
            Count(gone, *pNode, 1);
        }
        for (const SProcessorAllNode* pNode : { &pair.after.discovered, &pair.after.simulators }) {
            Count(gone, *pNode, -1);
        }
    }
    return gone;
}

QString CStepText::Deletion(const SUndoStep& step)
{
    const SCount gone = GetGone(step);
    if (gone.nGroups == 0) {
        return step.nCommands == 1 ? tr("Delete %1").arg(step.strName) : tr("Delete %n processor(s)", nullptr, gone.nProcessors);
    }
    if (step.nCommands == 1 && gone.nProcessors == 0) {
        return tr("Delete the group “%1”").arg(step.strName);
    }
    if (step.nCommands == 1) {
        return tr("Delete the group “%1” with %n processor(s)", nullptr, gone.nProcessors).arg(step.strName);
    }
    if (gone.nProcessors == 0) {
        return tr("Delete %n group(s)", nullptr, gone.nGroups);
    }
    return tr("Delete %1 and %2").arg(tr("%n group(s)", nullptr, gone.nGroups), tr("%n processor(s)", nullptr, gone.nProcessors));
}

QString CStepText::Ungroup(const SUndoStep& step)
{
    return step.nCommands == 1 ? tr("Ungroup %1").arg(step.strName) : tr("Ungroup %n group(s)", nullptr, step.nCommands);
}

QString CStepText::OfMany(const SUndoStep& step)
{
    switch (step.command) {
    case CommandAddGroup:
        return tr("Group %n processor(s)", nullptr, step.nNodes);
    case CommandAddSimulators:
        return tr("Add %n simulator(s)", nullptr, step.nNodes);
    case CommandMove:
        return tr("Move %n processor(s)", nullptr, step.nNodes);
    default:
        return step.bUngroupOnly ? Ungroup(step) : Deletion(step);
    }
}

QString CStepText::OfOne(const SUndoStep& step)
{
    switch (step.command) {
    case CommandAddGroup:
        return tr("Add the group “%1”").arg(step.strName);
    case CommandAddProcessor:
        return tr("Add the processor %1").arg(step.strName);
    case CommandRename:
        return tr("Rename to %1").arg(step.strName);
    case CommandMove:
        return tr("Move %1").arg(step.strName);
    case CommandChief:
        return tr("Chief of %1").arg(step.strName);
    case CommandImport:
        return tr("Import");
    case CommandTakeEarlier:
        return tr("Restore an earlier list");
    case CommandUseRefused:
        return tr("Use the refused list");
    default:
        return OfMany(step);
    }
}

} // namespace

QString StepName::Get(const SUndoStep& step)
{
    const bool bOne = step.nCommands == 1 && !step.bMembers;
    return bOne ? CStepText::OfOne(step) : CStepText::OfMany(step);
}
