#include "Kestrel/replay/ReplayRemarks.h"

#include "journal/replay/CRecordedRun.h"

#include <limits>

namespace {

constexpr int nMostCalls = 5;

quint64 GetFirst(const CRecordedRun& run)
{
    return run.HasBeginning() || run.GetLines().isEmpty() ? 1 : run.GetLines().constFirst().nNumber;
}

QString GetGaps(const CRecordedRun& run)
{
    const quint64 nThere = static_cast<quint64>(run.GetLines().size());
    const quint64 nMissing = run.GetLines().constLast().nNumber - GetFirst(run) + 1 - nThere;
    return QStringLiteral(
               "%1 of the numbers have no line, the first of them %2: the lines are missing, or their calls never came "
               "back.")
        .arg(nMissing)
        .arg(ReplayRemarks::FindGap(run, std::numeric_limits<quint64>::max()));
}

QStringList GetOpenCalls(const CRecordedRun& run)
{
    QStringList listCall;
    for (const SRecordedLine& line : run.GetLines()) {
        if (line.strKind == QLatin1String("begin")) {
            listCall.append(
                QStringLiteral("%1 on thread %2 (n %3) never came back.").arg(line.GetText(), line.strThread).arg(line.nNumber));
        }
    }
    return listCall;
}

} // namespace

QStringList ReplayRemarks::Get(const CRecordedRun& run)
{
    QStringList listRemark = GetOpenCalls(run).mid(0, nMostCalls);
    const bool bLost = run.GetCompleteTo() != std::numeric_limits<quint64>::max();
    if (!run.HasEnd() && !bLost) {
        listRemark.append(
            QStringLiteral("The recording has no end: the program was running when it was saved, or did not end in order."));
    }
    if (!bLost && FindGap(run, std::numeric_limits<quint64>::max()) != 0) {
        listRemark.append(GetGaps(run));
    }
    return listRemark;
}

quint64 ReplayRemarks::FindGap(const CRecordedRun& run, quint64 nNumber)
{
    quint64 nNext = GetFirst(run);
    for (const SRecordedLine& line : run.GetLines()) {
        if (line.nNumber != nNext) {
            return nNext < nNumber ? nNext : 0;
        }
        ++nNext;
    }
    return 0;
}
