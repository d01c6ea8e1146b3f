#pragma once

#include "CorvidControl/day/SScenarioStep.h"

#include <QMap>
#include <QUuid>
#include <QVector>

#include <random>

class CDeviceCommands;
class CHostState;
class CSimulatedNetwork;
class CProcessorList;
struct SProcessorNode;

/// Carries out the steps of a scenario or of a quiet day. One thread at a time, but for the steps that
/// IsBlocking names, which touch nothing of this object and may run beside the others.
class CStepRunner
{
public:
    CStepRunner(CProcessorList& processorsIn, CHostState& hostIn, CDeviceCommands& commandsIn, CSimulatedNetwork& networkIn,
                quint32 nSeed);

    /// The step may take as long as a device takes.
    static bool IsBlocking(const SScenarioStep& step);

    /// Takes the step. Appends to vecFollow what follows from it later. The answer is what could not be
    /// done; empty when all could.
    QString Run(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);

    /// The step in one line, for people: "project Ceiling Evening News". Any thread.
    QString GetText(const SScenarioStep& step) const;

private:
    using Action = QString (CStepRunner::*)(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    static const QMap<QString, Action>& GetActions();

    QString RunDevice(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunFailOver(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunChief(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunHost(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunNode(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunSelect(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunAdd(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunNetwork(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);
    QString RunStorm(const SScenarioStep& step, QVector<SScenarioStep>& vecFollow);

    QUuid Find(const SScenarioStep& step, const char* pKey) const;
    QUuid FindText(const QString& strText) const;
    SProcessorNode FindProcessor(const QUuid& id) const;
    QUuid FindPartner(const SProcessorNode& processor) const;
    void Disturb();

    CProcessorList& processors;
    CHostState& host;
    CDeviceCommands& commands;
    CSimulatedNetwork& network;
    std::mt19937 random;
};
