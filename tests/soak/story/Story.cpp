#include "story/Story.h"

#include <QRegularExpression>
#include <QStringList>

QString Story::Write(const SStoryStep& step)
{
    return QStringLiteral("%1.%2.%3").arg(step.strVerb).arg(step.nFirst).arg(step.nSecond);
}

QString Story::Write(const StorySteps& vecStep)
{
    QStringList listStep;
    for (const SStoryStep& step : vecStep) {
        listStep.append(Write(step));
    }
    return listStep.join(QLatin1Char(' '));
}

bool Story::Read(const QString& strText, StorySteps& vecStep)
{
    static const QRegularExpression form(QStringLiteral("^([a-z]+)\\.(\\d{1,6})\\.(\\d{1,6})$"));
    const QStringList listStep = strText.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& strStep : listStep) {
        const QRegularExpressionMatch match = form.match(strStep);
        if (!match.hasMatch()) {
            return false;
        }
        vecStep.push_back({ match.captured(1), match.captured(2).toInt(), match.captured(3).toInt() });
    }
    return true;
}
