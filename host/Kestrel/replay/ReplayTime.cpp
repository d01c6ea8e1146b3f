#include "Kestrel/replay/ReplayTime.h"

std::optional<QTime> ReplayTime::Read(const QString& strTime)
{
    for (const char* szFormat : { "HH:mm:ss.zzz", "HH:mm:ss" }) {
        const QTime time = QTime::fromString(strTime, QLatin1String(szFormat));
        if (time.isValid()) {
            return time;
        }
    }
    return std::nullopt;
}

QDateTime ReplayTime::FindMoment(const QDateTime& timeStart, const QTime& time)
{
    QDateTime moment = timeStart;
    moment.setTime(time);
    return moment < timeStart ? moment.addDays(1) : moment;
}

QString ReplayTime::GetText(const QDateTime& timeStart, const QDateTime& time)
{
    return time.toOffsetFromUtc(timeStart.offsetFromUtc()).toString(QStringLiteral("HH:mm:ss.zzz"));
}
