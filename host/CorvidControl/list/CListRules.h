#pragma once

#include "CorvidControl/list/SListLimits.h"
#include "CorvidControl/list/SOutcome.h"

/// What may be done to the panes, and how it is done. Where a command is refused nothing has changed. A lock of
/// the list as a whole, its messages and its saving are CProcessorList's, under whose mutex each call is made.
class CListRules
{
public:
    /// panesIn must outlive it.
    CListRules(CPanes& panesIn, const SListLimits& limitsIn);

    /// The same for its life.
    const SListLimits& GetLimits() const
    {
        return limits;
    }

    /// Refused for a bad name, an empty or taken id, too many numbers or groups.
    SOutcome AddGroup(int nPane, SProcessorGroupNode group);

    /// To the end of the root; all of them or none.
    SOutcome AddProcessors(int nPane, const QList<SProcessorNode>& listProcessor);

    /// A processor or a group of either pane; the name it has is no change.
    SOutcome Rename(const QUuid& id, const QString& strText);

    /// To the end of a group of its pane, or of the root for a null idGroup.
    SOutcome Move(const QUuid& id, const QUuid& idGroup);

    /// Null for no Chief. Refused where the group or the member is not there.
    SOutcome SetChief(const QUuid& idGroup, const QUuid& idChief);

    /// Refused while it runs strProject. One that is gone is no fault.
    SOutcome RemoveProcessor(const QUuid& id, const QString& strProject);

    /// With its processors, which are then in listGone, unless one runs strProject; or without.
    SOutcome RemoveGroup(const QUuid& id, bool bWithProcessors, const QString& strProject, QList<SProcessorNode>& listGone);

    /// That the processor, or a member of the group, answers and runs strProject.
    SFault FindUse(const QUuid& id, const QString& strProject) const;

    /// Why the Discovered list cannot take a processor at nIP (host order).
    SFault FindAddFault(quint32 nIP) const;

private:
    CPanes& panes;
    const SListLimits limits;
};
