#include "journal/replay/ReplayText.h"

namespace {

QString GetPlace(const QString& strThread)
{
    const QString strClass = ReplayText::GetClass(strThread);
    if (strClass == QLatin1String("gui")) {
        return QStringLiteral("on the GUI thread");
    }
    if (strClass == QLatin1String("worker")) {
        return QStringLiteral("on its worker");
    }
    return strClass == QLatin1String("pool") ? QStringLiteral("on the thread pool") : QStringLiteral("on a thread of its own");
}

QString GetNumbered(const SRecordedLine& line)
{
    return QStringLiteral("%1 (n %2)").arg(line.GetText()).arg(line.nNumber);
}

} // namespace

QString ReplayText::GetClass(const QString& strThread)
{
    return strThread.section(QLatin1Char('-'), 0, 0);
}

QString ReplayText::Additional(const SReplayedCall& call)
{
    return QStringLiteral("The panel called %1 %2, which is not in the recording.").arg(call.GetText(), GetPlace(call.strThread));
}

QString ReplayText::Instead(const SReplayedCall& call, const SRecordedLine& line)
{
    return QStringLiteral("The panel called %1 %2, where the recording has %3.")
        .arg(call.GetText(), GetPlace(call.strThread), GetNumbered(line));
}

QString ReplayText::TooEarly(const SReplayedCall& call, const SRecordedLine& line)
{
    return QStringLiteral("The panel called %1 %2 without, or before, %3.")
        .arg(call.GetText(), GetPlace(call.strThread), GetNumbered(line));
}

QString ReplayText::OtherThread(const SReplayedCall& call, const SRecordedLine& line)
{
    return QStringLiteral("The panel called %1 %2, and the recording has it %3 (n %4).")
        .arg(call.GetText(), GetPlace(call.strThread), GetPlace(line.strThread))
        .arg(line.nNumber);
}

QString ReplayText::Missing(const SRecordedLine& line)
{
    return QStringLiteral("The panel did not call %1 %2.").arg(GetNumbered(line), GetPlace(line.strThread));
}
