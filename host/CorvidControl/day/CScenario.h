#pragma once

#include "CorvidControl/day/SScenarioStep.h"

#include <QJsonArray>
#include <QVector>

/// A scenario file, see docs/scenarios.md: all of it, or the first fault and nothing else. A plain value.
class CScenario
{
public:
    /// Blocks for the disk. Never fails: see GetFault.
    static CScenario ReadFile(const QString& strPath);

    /// The text of a file; strName stands in front of a fault.
    static CScenario Read(const QByteArray& bytes, const QString& strName);

    /// One line that names the file, the step and the fault; empty when there is none.
    QString GetFault() const
    {
        return strFault;
    }

    /// By time, then as in the file.
    const QVector<SScenarioStep>& GetSteps() const
    {
        return vecStep;
    }

    /// The array under "ui", as in the file; only the times in it are checked.
    QJsonArray GetMarks() const
    {
        return arrayMark;
    }

    /// The address of the key "ip", host order; 0 without one.
    static quint32 ReadAddress(const SScenarioStep& step);

private:
    static CScenario Refuse(const QString& strReason);
    QString Fill(const QJsonObject& object);

    QString strFault;
    QVector<SScenarioStep> vecStep;
    QJsonArray arrayMark;
};
