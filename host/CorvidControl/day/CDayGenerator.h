#pragma once

#include "CorvidControl/day/SScenarioStep.h"
#include "CorvidControl/list/CNodeTree.h"

#include <random>

/// Invents what happens on a day without a scenario: devices restart, drop out, come back, fail over and
/// change their project, one of them every few seconds. The same seed and the same lists give the same day, at
/// any pace. For one thread at a time.
class CDayGenerator
{
public:
    /// dPaceIn: how many times as fast as usual everything happens; above 0.
    explicit CDayGenerator(quint32 nSeed, double dPaceIn = 1.0) : random(nSeed), dPace(dPaceIn) { }

    /// The next thing that happens in this list, nAt milliseconds from now, its node named by the id; nothing (an
    /// empty strDo) in a list without processors.
    SScenarioStep GetNext(const CNodeTree& tree);

private:
    quint32 Draw(quint32 nMost); ///< 0 to nMost - 1
    SScenarioStep BuildStep(const QString& strDo, const SProcessorNode& processor) const;
    SScenarioStep DrawReturn(const QList<SProcessorNode>& listOffline);
    SScenarioStep DrawFailOver(const QList<SProcessorNode>& listOnline);
    SScenarioStep DrawProject(const QList<SProcessorNode>& listOnline);
    SScenarioStep DrawBoot(const QList<SProcessorNode>& listOnline);

    std::mt19937 random; // its numbers are the same everywhere, those of the library's distributions are not
    double dPace;
};
