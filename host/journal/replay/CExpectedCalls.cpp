#include "journal/replay/CExpectedCalls.h"

#include "journal/replay/CReplayIds.h"

#include <algorithm>

void CExpectedCalls::Append(const SRecordedLine& line, bool bExcused)
{
    vecExpected.append({ &line, Open, bExcused });
}

int CExpectedCalls::GetSize() const
{
    return vecExpected.size();
}

const SRecordedLine& CExpectedCalls::GetLine(int nAt) const
{
    return *vecExpected.at(nAt).pLine;
}

CExpectedCalls::EnState CExpectedCalls::GetState(int nAt) const
{
    return vecExpected.at(nAt).state;
}

void CExpectedCalls::SetState(int nAt, EnState state)
{
    vecExpected[nAt].state = state;
}

bool CExpectedCalls::Match(int nAt, const SReplayedCall& call, CReplayIds& ids) const
{
    return IsSameOperation(nAt, call) && ids.Match(call.args, GetLine(nAt).fields.value(QStringLiteral("args")).toArray());
}

bool CExpectedCalls::WouldMatch(int nAt, const SReplayedCall& call, const CReplayIds& ids) const
{
    return IsSameOperation(nAt, call) && ids.WouldMatch(call.args, GetLine(nAt).fields.value(QStringLiteral("args")).toArray());
}

int CExpectedCalls::FindOpen(int nFrom, bool bExcused) const
{
    int nAt = std::min(nFrom, GetSize());
    while (nAt < GetSize() && (GetState(nAt) != Open || (!bExcused && IsExcused(nAt)))) {
        ++nAt;
    }
    return nAt;
}

bool CExpectedCalls::IsExcused(int nAt) const
{
    return vecExpected.at(nAt).bExcused;
}

bool CExpectedCalls::IsQuestion(const QString& strOperation)
{
    return strOperation == QLatin1String("IsDeleteBlocked") || strOperation == QLatin1String("IsNodeInUse");
}

bool CExpectedCalls::IsSameOperation(int nAt, const SReplayedCall& call) const
{
    return GetLine(nAt).strOperation == call.strOperation && GetLine(nAt).strObject == call.strObject;
}
