#pragma once

#include <QJsonObject>
#include <QString>

/// One thing that happens. Its keys are those of docs/scenarios.md, checked by CScenario.
struct SScenarioStep
{
    qint64 nAt = 0;   ///< milliseconds since the start of the scenario
    QString strDo;    ///< what happens: the name of one of StepVerbs
    QJsonObject keys; ///< all keys of the step, "at" and "do" included

    /// True when the step has the key.
    bool Has(const char* szKey) const
    {
        return keys.contains(QLatin1String(szKey));
    }

    /// Empty without the key.
    QString GetText(const char* szKey) const
    {
        return keys.value(QLatin1String(szKey)).toString();
    }

    /// The key "on"; false without it.
    bool IsOn() const
    {
        return keys.value(QLatin1String("on")).toBool();
    }

    /// dDefault without the key.
    double GetNumber(const char* szKey, double dDefault) const
    {
        return keys.value(QLatin1String(szKey)).toDouble(dDefault);
    }
};
