#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IRuntimeControl.h"

class CJobs;
class CProcessorList;

/// The object behind g_pRuntimeControl. Any thread; nothing here blocks but Detach.
class CRuntimeControl final : public CObserved<IRuntimeControl, SenderRuntime>
{
public:
    /// All references must outlive it.
    CRuntimeControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, CProcessorList& processorsIn, CJobs& jobsIn);

    /// Equal numbers that wait are merged; the delivery may wait for the user, see CMessageDispatcher.
    void PostMessage(qint32 nMessage) override;

    /// Takes no lock.
    bool IsSimulatorPane() override;

    /// A change is followed by 9.
    void SetSimulatorPane(bool bSimulator) override;

    /// Ids that are gone are left out; false, and the old selection stays, when nothing else was given. A
    /// change is followed by 9.
    bool SetSelectedNodes(const std::vector<QUuid>& vecId) override;

    /// Never empty unless an empty selection was set: the root takes the place of the last deleted node.
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override;

    /// Of the current pane: the selected processors and the members of selected groups, each once.
    std::vector<QUuid> GetSelectedProcessors() override;

    /// As IsNodeInUse.
    bool IsDeleteBlocked(QUuid idNode) override;

    /// True when the processor, or a member of the group, answers and runs the open project.
    bool IsNodeInUse(QUuid idNode) override;

    /// Counts: busy lasts from the first true to the last false. A false too many changes nothing.
    void SetBusy(bool bBusy) override;

private:
    CProcessorList& processors;
    CJobs& jobs;
};
