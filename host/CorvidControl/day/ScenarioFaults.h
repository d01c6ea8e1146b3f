#pragma once

#include <QString>

class QByteArray;
class QJsonObject;

/// What a scenario may hold, see docs/scenarios.md. For any thread.
namespace ScenarioFaults {

/// The first fault of a whole file, with the number of its step or mark, from 1; empty when there is none.
QString FindScenarioFault(const QJsonObject& object);

/// The first key that stands twice in one object of the text of a file, with its place as above; empty when there is
/// none. The text must be good JSON.
QString FindTwiceFault(const QByteArray& bytes);

/// The first fault of one step, by the entry of its verb in StepVerbs; empty when there is none.
QString FindStepFault(const QJsonObject& step);

} // namespace ScenarioFaults
