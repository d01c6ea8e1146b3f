#pragma once

#include "CorvidControl/day/SScenarioStep.h"

#include <QUuid>
#include <QVector>

#include <functional>
#include <random>

class CDeviceCommands;
class CFaults;
class CHostState;
class CMessageDispatcher;
class CSimulatedNetwork;
class CProcessorList;
struct SProcessorNode;

/// What became of a step.
struct SStepResult
{
    QString strFault;                 ///< what could not be done, in a few words; empty when all could
    QVector<SScenarioStep> vecFollow; ///< what follows from it later
};

/// Carries out the steps of a scenario or of a quiet day. One thread at a time, but for the steps that
/// block, which touch nothing of this object and may run beside the others.
class CStepRunner
{
public:
    /// The same seed gives the same storms. All references must outlive the runner.
    CStepRunner(CProcessorList& processorsIn, CHostState& hostIn, CDeviceCommands& commandsIn, CSimulatedNetwork& networkIn,
                CMessageDispatcher& dispatcherIn, CFaults& faultsIn, quint32 nSeed);

    /// True when the step may take as long as a device takes. Any thread.
    static bool IsBlocking(const SScenarioStep& step);

    /// Takes the step, whose verb and keys must be good ones. Refusals of the list are reported there.
    SStepResult Run(const SScenarioStep& step);

    /// The step in one line, for people: "project Ceiling Evening News". Any thread.
    QString GetText(const SScenarioStep& step) const;

    /// The actions of StepVerbs, which has a sentence on each; called through Run.
    /// @{
    SStepResult TakeOffline(const SScenarioStep& step);
    SStepResult TakeOnline(const SScenarioStep& step);
    SStepResult Boot(const SScenarioStep& step);
    SStepResult SetRole(const SScenarioStep& step);
    SStepResult FailOver(const SScenarioStep& step);
    SStepResult SetProject(const SScenarioStep& step);
    SStepResult SetChief(const SScenarioStep& step);
    SStepResult SetChiefMode(const SScenarioStep& step);
    SStepResult OpenProject(const SScenarioStep& step);
    SStepResult CloseProject(const SScenarioStep& step);
    SStepResult LockList(const SScenarioStep& step);
    SStepResult BlockRefresh(const SScenarioStep& step);
    SStepResult Rename(const SScenarioStep& step);
    SStepResult Move(const SScenarioStep& step);
    SStepResult Expand(const SScenarioStep& step);
    SStepResult Select(const SScenarioStep& step);
    SStepResult SetPane(const SScenarioStep& step);
    SStepResult AddGroup(const SScenarioStep& step);
    SStepResult AddProcessor(const SScenarioStep& step);
    SStepResult AddSimulators(const SScenarioStep& step);
    SStepResult Delete(const SScenarioStep& step);
    SStepResult Appear(const SScenarioStep& step);
    SStepResult Silence(const SScenarioStep& step);
    SStepResult Scan(const SScenarioStep& step);
    SStepResult Storm(const SScenarioStep& step);

    SStepResult DelayCall(const SScenarioStep& step);
    SStepResult HangCall(const SScenarioStep& step);
    SStepResult ThrowFromCall(const SScenarioStep& step);
    SStepResult RefuseSelection(const SScenarioStep& step);
    SStepResult SetImportCode(const SScenarioStep& step);
    SStepResult SetExportCode(const SScenarioStep& step);
    SStepResult RefuseCommand(const SScenarioStep& step);

    SStepResult LoseMessages(const SScenarioStep& step);
    SStepResult DoubleMessages(const SScenarioStep& step);
    SStepResult ReorderMessages(const SScenarioStep& step);
    SStepResult SendEmptyMessage(const SScenarioStep& step);
    SStepResult Flicker(const SScenarioStep& step);
    SStepResult Collide(const SScenarioStep& step);
    SStepResult SetClockBack(const SScenarioStep& step);
    /// @}

private:
    SStepResult ChangeDevice(const SScenarioStep& step, const std::function<void(const QUuid& id)>& change) const;
    static SStepResult BuildNotThere(const QString& strText);
    QUuid Find(const SScenarioStep& step, const char* szKey) const;
    QUuid FindText(const QString& strText) const;
    SProcessorNode FindProcessor(const QUuid& id) const;
    QUuid FindPartner(const SProcessorNode& processor) const;
    void Disturb();
    bool AreInOnePane(const QUuid& id, const QUuid& idOther) const;

    CProcessorList& processors;
    CHostState& host;
    CDeviceCommands& commands;
    CSimulatedNetwork& network;
    CMessageDispatcher& dispatcher;
    CFaults& faults;
    std::mt19937 random; ///< of the steps that do not block
};
