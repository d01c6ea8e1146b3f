#include "journal/replay/CReadSelections.h"

#include "journal/replay/CExpectedCalls.h"
#include "journal/replay/CRecordedRun.h"
#include "journal/replay/CReplayIds.h"

#include <QUuid>

#include <algorithm>

namespace {

/// So far the GUI thread may be behind: two for each refresh.
constexpr std::ptrdiff_t nReadings = 8;

QJsonArray GetIds(const QJsonArray& args)
{
    return args.at(0).toArray();
}

// The root stands for nothing.
bool IsBeginOf(const QJsonArray& ids, const QJsonArray& all)
{
    if (all.isEmpty()) {
        return ids == QJsonArray{ QUuid().toString(QUuid::WithoutBraces) };
    }
    return !ids.isEmpty() && ids.size() <= all.size() && std::equal(ids.begin(), ids.end(), all.begin());
}

} // namespace

CReadSelections::CReadSelections(const CRecordedRun& run)
{
    std::size_t nCompared = 0;
    quint64 nStep = 0; // of the user, the last one
    for (const SRecordedLine& line : run.GetLines()) {
        if (line.strKind == QLatin1String("user")) {
            nStep = line.nNumber;
        } else if (line.strOperation == QLatin1String("GetSelectedNodes")) {
            vecRead.push_back({ line.nNumber, line.nNumber, line.fields.value(QStringLiteral("result")).toArray() });
        } else if (line.strOperation == QLatin1String("IsSimulatorPane") && line.strThread != QLatin1String("gui")) {
            vecLock.push_back(line.nNumber);
            for (; nCompared < vecRead.size(); ++nCompared) {
                vecRead[nCompared].nLock = line.nNumber;
            }
        } else if (line.strOperation == QLatin1String("SetSelectedNodes") && line.strThread == QLatin1String("gui")) {
            vecSet.push_back({ line.nNumber, nStep, GetIds(line.fields.value(QStringLiteral("args")).toArray()) });
        }
    }
}

// Handed back is what the store has: what it has read since the step that led to the last selection here, as the store has
// that before the library, or that one once more.
bool CReadSelections::IsExcused(const SRecordedLine& line) const
{
    if (line.strOperation != QLatin1String("SetSelectedNodes")) {
        return CExpectedCalls::IsQuestion(line.strOperation);
    }
    const QJsonArray ids = GetIds(line.fields.value(QStringLiteral("args")).toArray());
    const SSelection* pSet = FindLastSet(line.nNumber);
    return (pSet && IsBeginOf(ids, pSet->ids) && HasRefreshed(pSet->nLock, line.nNumber))
        || WasRead(ids, line.nNumber, pSet ? pSet->nLock : 0);
}

bool CReadSelections::IsExcused(const SReplayedCall& call, const SReplayMoment& moment) const
{
    if (call.strOperation != QLatin1String("SetSelectedNodes")) {
        return CExpectedCalls::IsQuestion(call.strOperation) && moment.ids.WasSelected(call.args.at(0).toString());
    }
    const QJsonArray ids = moment.ids.GetRecorded(GetIds(call.args));
    const SSelection* pSet = FindLastSet(moment.nDue);
    return (pSet && IsBeginOf(ids, pSet->ids)) || WasRead(ids, moment.nDue, 0);
}

bool CReadSelections::WasRead(const QJsonArray& ids, quint64 nBefore, quint64 nComparedAfter) const
{
    const auto itEnd = std::lower_bound(vecRead.begin(), vecRead.end(), nBefore, &IsEarlier);
    const auto itBegin = itEnd - std::min(nReadings, itEnd - vecRead.begin());
    return std::any_of(itBegin, itEnd,
                       [&](const SSelection& read) { return read.nLock > nComparedAfter && IsBeginOf(ids, read.ids); });
}

// The panel hands nothing back before it has refreshed.
bool CReadSelections::HasRefreshed(quint64 nAfter, quint64 nBefore) const
{
    const auto it = std::upper_bound(vecLock.begin(), vecLock.end(), nAfter);
    return it != vecLock.end() && *it < nBefore;
}

const CReadSelections::SSelection* CReadSelections::FindLastSet(quint64 nBefore) const
{
    const auto it = std::lower_bound(vecSet.begin(), vecSet.end(), nBefore, &IsEarlier);
    return it == vecSet.begin() ? nullptr : &*(it - 1);
}

bool CReadSelections::IsEarlier(const SSelection& selection, quint64 nNumber)
{
    return selection.nNumber < nNumber;
}
