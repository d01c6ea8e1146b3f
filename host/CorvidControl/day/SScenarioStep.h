#pragma once

#include <QJsonObject>
#include <QString>

/// One thing that happens. Its keys are those of docs/scenarios.md, checked by CScenario.
struct SScenarioStep
{
    qint64 nAt = 0;   ///< milliseconds since the start of the scenario
    QString strDo;    ///< what happens
    QJsonObject keys; ///< all keys of the step, "at" and "do" included

    QString GetText(const char* pKey) const
    {
        return keys.value(QLatin1String(pKey)).toString();
    }
    bool IsOn() const
    {
        return keys.value(QLatin1String("on")).toBool();
    }
    double GetNumber(const char* pKey, double dDefault) const
    {
        return keys.value(QLatin1String(pKey)).toDouble(dDefault);
    }
};
