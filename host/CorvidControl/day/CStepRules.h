#pragma once

#include <QString>

class QJsonObject;
class QJsonValue;

/// What a scenario may hold. Each function answers the first fault, or an empty text.
class CStepRules
{
public:
    static QString FindScenarioFault(const QJsonObject& object);
    static QString FindStepFault(const QJsonObject& step);

    CStepRules() = delete;

private:
    static QString FindMarkFault(const QJsonValue& value);
    static QString FindTimeFault(const QJsonObject& object);
};
