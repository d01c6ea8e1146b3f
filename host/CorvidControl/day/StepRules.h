#pragma once

#include <QString>

class QJsonObject;
class QJsonValue;

/// What a scenario may hold, see docs/scenarios.md. For any thread.
namespace StepRules {

constexpr char szSeconds[] = "seconds, from 0 to a day"; ///< what IsSeconds accepts, in words

/// The first fault of a whole file, with the number of its step or mark, from 1; empty when there is none.
QString FindScenarioFault(const QJsonObject& object);

/// The first fault of one step, by the entry of its verb in StepVerbs; empty when there is none.
QString FindStepFault(const QJsonObject& step);

/// True for a number of dLeast to dMost, both included.
bool IsNumber(const QJsonValue& value, double dLeast, double dMost);

/// True for a number of seconds that a time or a length may have.
bool IsSeconds(const QJsonValue& value);

} // namespace StepRules
