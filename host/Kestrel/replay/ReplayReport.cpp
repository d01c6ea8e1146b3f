#include "Kestrel/replay/ReplayReport.h"

#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/ReplayRemarks.h"
#include "Kestrel/replay/ReplayTime.h"
#include "Kestrel/replay/SReplayResult.h"

namespace {

constexpr int nMostLines = 10;

QString GetZone(const CReplaySource& source)
{
    const QString strZone = source.GetHeaderText(QStringLiteral("zone"));
    const QString strOffset
        = QStringLiteral("UTC") + source.GetStart().toString(QStringLiteral("t")).remove(QStringLiteral("UTC"));
    return strZone.isEmpty() ? strOffset : QStringLiteral("%1, %2").arg(strZone, strOffset);
}

QString GetRun(const CReplaySource& source)
{
    const QDateTime timeStart = source.GetStart();
    const CRecordedRun& run = source.GetRun();
    return QStringLiteral("%1: run %2 of Kestrel %3, %4 from %5 to %6 (%7)%8")
        .arg(source.GetPath(), source.GetHeaderText(QStringLiteral("run")), source.GetHeaderText(QStringLiteral("version")),
             timeStart.toString(QStringLiteral("yyyy-MM-dd")), ReplayTime::GetText(timeStart, timeStart),
             ReplayTime::GetText(timeStart, run.GetLines().constLast().date), GetZone(source),
             run.IsMasked() ? QStringLiteral(", masked: what was typed is not compared") : QString());
}

QString GetCounts(const SReplayResult& result)
{
    const QString strCounts = QStringLiteral("%1 calls recorded, %2 messages delivered, %3 gestures played")
                                  .arg(result.nCalls)
                                  .arg(result.nMessages)
                                  .arg(result.nGestures);
    const QString strOver = QStringLiteral(", %1 passed over: they are for parts of the host that a replay does not have");
    return result.nPassedOver == 0 ? strCounts : strCounts + strOver.arg(result.nPassedOver);
}

QString GetCall(const CReplaySource& source, const SReplayResult& result)
{
    if (result.strCall.isEmpty()) {
        return QStringLiteral("no call differs");
    }
    const QString strCall = QStringLiteral("the first call that differs: ") + result.strCall;
    const quint64 nGap = ReplayRemarks::FindGap(source.GetRun(), result.nCall);
    return nGap == 0
        ? strCall
        : strCall + QStringLiteral(" Lines are missing before it, the first one with the number %1: that may be why.").arg(nGap);
}

QStringList GetScreen(const QStringList& listScreen)
{
    QStringList listLine = listScreen.mid(0, nMostLines);
    for (QString& strLine : listLine) {
        strLine.prepend(QStringLiteral("on the screen differs: "));
    }
    if (listScreen.size() > nMostLines) {
        listLine.append(QStringLiteral("and %1 more on the screen").arg(listScreen.size() - nMostLines));
    }
    return listLine;
}

} // namespace

QString ReplayReport::GetText(const CReplaySource& source, const SReplayResult& result)
{
    QStringList listLine{ GetRun(source), GetCounts(result) };
    listLine += source.GetNotes();
    if (!source.GetRun().IsWhole()) {
        listLine.append(source.GetRun().GetReason());
    }
    listLine += ReplayRemarks::Get(source.GetRun());
    listLine += GetScreen(result.listScreen);
    listLine.append(GetCall(source, result));
    return listLine.join(QLatin1Char('\n'));
}
