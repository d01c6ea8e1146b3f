#include "contract/steps/Steps.h"

#include <QStringList>

QString Steps::Write(const std::vector<SStep>& vecStep)
{
    QStringList listStep;
    for (const SStep& step : vecStep) {
        listStep.append(QStringLiteral("%1.%2.%3").arg(step.verb).arg(step.nFirst).arg(step.nSecond));
    }
    return listStep.join(QLatin1Char(','));
}

std::vector<SStep> Steps::Read(const QString& strText)
{
    std::vector<SStep> vecStep;
    const QStringList listStep = strText.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& strStep : listStep) {
        const QStringList listNumber = strStep.split(QLatin1Char('.'));
        const int nVerb = listNumber.value(0).toInt();
        if (nVerb < 0 || nVerb >= VerbCount) {
            break;
        }
        vecStep.push_back({ static_cast<EnVerb>(nVerb), listNumber.value(1).toInt(), listNumber.value(2).toInt() });
    }
    return vecStep;
}
