#pragma once

#include "CorvidControl/day/SScenarioStep.h"

#include <QJsonArray>
#include <QVector>

/// A scenario file, see docs/scenarios.md: all of it, or the first fault and nothing else.
class CScenario
{
public:
    static CScenario ReadFile(const QString& strPath);

    /// strName stands in front of a fault.
    static CScenario Read(const QByteArray& bytes, const QString& strName);

    /// One line that names the file, the step and the fault; empty when there is none.
    QString GetFault() const
    {
        return strFault;
    }

    const QVector<SScenarioStep>& GetSteps() const
    {
        return vecStep;
    } ///< by time, then as in the file
    QJsonArray GetMarks() const
    {
        return arrayMark;
    }

    /// Address of the key "ip", host order.
    static quint32 ReadAddress(const SScenarioStep& step);

private:
    static CScenario Refuse(const QString& strReason);
    QString Fill(const QJsonObject& object);

    QString strFault;
    QVector<SScenarioStep> vecStep;
    QJsonArray arrayMark;
};
