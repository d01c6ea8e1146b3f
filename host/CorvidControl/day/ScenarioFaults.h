#pragma once

#include <QString>

class QJsonObject;

/// What a scenario may hold, see docs/scenarios.md. For any thread.
namespace ScenarioFaults {

/// The first fault of a whole file, with the number of its step or mark, from 1; empty when there is none.
QString FindScenarioFault(const QJsonObject& object);

/// The first fault of one step, by the entry of its verb in StepVerbs; empty when there is none.
QString FindStepFault(const QJsonObject& step);

} // namespace ScenarioFaults
