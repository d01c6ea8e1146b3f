#include "journal/replay/CReplayScript.h"

#include "journal/replay/CRecordedRun.h"
#include "journal/replay/CReplayIds.h"
#include "journal/replay/ReplayText.h"
#include "journal/replay/RunLines.h"

#include <algorithm>

namespace {

// Numbered from 0, in the order in which they are met.
int GetIndex(QVector<QString>& vecName, const QString& strName)
{
    if (!vecName.contains(strName)) {
        vecName.append(strName);
    }
    return vecName.indexOf(strName);
}

const SRecordedLine* GetEarlier(const SRecordedLine* pOne, const SRecordedLine* pOther)
{
    return !pOne || (pOther && pOther->nNumber < pOne->nNumber) ? pOther : pOne;
}

} // namespace

CReplayScript::CReplayScript(const CRecordedRun& runIn)
    : selections(runIn), bOpenEnd(!RunLines::IsComplete(runIn)), gui(bOpenEnd), pool(bOpenEnd), other(bOpenEnd)
{
    const QVector<const SRecordedLine*> vecCall = RunLines::GetPanelCalls(runIn);
    for (const SRecordedLine* pLine : vecCall) {
        Append(*pLine);
    }
}

void CReplayScript::Append(const SRecordedLine& line)
{
    const QString strClass = ReplayText::GetClass(line.strThread);
    if (strClass == QLatin1String("gui")) {
        gui.Append(line, selections.IsExcused(line));
    } else if (strClass == QLatin1String("worker")) {
        const int nWorker = GetIndex(vecRecordedWorker, line.strThread);
        vecWorker.resize(static_cast<std::size_t>(vecRecordedWorker.size()), CWorkerCalls(bOpenEnd));
        vecWorker[static_cast<std::size_t>(nWorker)].Append(line);
    } else {
        (strClass == QLatin1String("pool") ? pool : other).Append(line);
    }
}

SReplayMatch CReplayScript::Take(const SReplayedCall& call, const SReplayMoment& moment)
{
    SReplayMatch match = TakeByClass(call, moment);
    const SRecordedLine* pElsewhere = match.strFault.isEmpty() ? nullptr : FindElsewhere(call, moment);
    if (pElsewhere) {
        match.strFault = ReplayText::OtherThread(call, *pElsewhere);
        match.pExpected = pElsewhere;
    }
    return match;
}

SReplayMatch CReplayScript::TakeByClass(const SReplayedCall& call, const SReplayMoment& moment)
{
    const QString strClass = ReplayText::GetClass(call.strThread);
    if (strClass == QLatin1String("gui")) {
        return gui.Take(call, moment, selections.IsExcused(call, moment));
    }
    if (strClass == QLatin1String("worker")) {
        return GetWorker(call.strThread).Take(call, moment);
    }
    return (strClass == QLatin1String("pool") ? pool : other).Take(call, moment);
}

CWorkerCalls& CReplayScript::GetWorker(const QString& strThread)
{
    const std::size_t nWorker = static_cast<std::size_t>(GetIndex(vecReplayedWorker, strThread));
    if (vecWorker.size() <= nWorker) {
        vecWorker.resize(nWorker + 1, CWorkerCalls(bOpenEnd));
    }
    return vecWorker[nWorker];
}

// The same call, due on a thread of another kind.
const SRecordedLine* CReplayScript::FindElsewhere(const SReplayedCall& call, const SReplayMoment& moment) const
{
    const QString strClass = ReplayText::GetClass(call.strThread);
    std::vector<const SRecordedLine*> vecFound{ gui.FindSame(call, moment.ids), pool.FindSame(call, moment.ids),
                                                other.FindSame(call, moment.ids) };
    for (const CWorkerCalls& worker : vecWorker) {
        vecFound.push_back(worker.FindSame(call, moment.ids));
    }
    const auto it = std::find_if(vecFound.begin(), vecFound.end(), [&](const SRecordedLine* pLine) {
        return pLine && pLine->nNumber < moment.nExpected && ReplayText::GetClass(pLine->strThread) != strClass;
    });
    return it == vecFound.end() ? nullptr : *it;
}

const SRecordedLine* CReplayScript::FindMissing(quint64 nBefore) const
{
    const SRecordedLine* pMissing = GetEarlier(FindMissingOfGui(nBefore), FindMissingOfWorker(nBefore));
    return GetEarlier(pMissing, GetEarlier(pool.FindMissing(nBefore), other.FindMissing(nBefore)));
}

const SRecordedLine* CReplayScript::FindMissingOfWorker(quint64 nBefore) const
{
    const SRecordedLine* pMissing = nullptr;
    for (const CWorkerCalls& worker : vecWorker) {
        pMissing = GetEarlier(pMissing, worker.FindMissing(nBefore));
    }
    return pMissing;
}

const SRecordedLine* CReplayScript::FindMissingOfGui(quint64 nBefore) const
{
    return gui.FindMissing(nBefore);
}

bool CReplayScript::HasOpenExcused(quint64 nBefore) const
{
    return gui.HasOpen(nBefore) || std::any_of(vecWorker.begin(), vecWorker.end(), [&](const CWorkerCalls& worker) {
               return worker.HasOpenRepeat(nBefore);
           });
}

void CReplayScript::SkipExcused(quint64 nBefore)
{
    for (CWorkerCalls& worker : vecWorker) {
        worker.SkipRepeats(nBefore);
    }
}
