#include "journal/replay/CLineIndex.h"

#include "journal/replay/CExpectedCalls.h"
#include "journal/replay/CRecordedRun.h"

#include <algorithm>

namespace {

bool IsCall(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("call") || line.strKind == QLatin1String("begin");
}

bool IsInput(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("message") || line.strKind == QLatin1String("user");
}

bool IsWanted(const SRecordedLine& line, CLineIndex::EnWanted wanted)
{
    if (wanted == CLineIndex::Messages) {
        return line.strKind == QLatin1String("message");
    }
    if (wanted == CLineIndex::UserSteps) {
        return line.strKind == QLatin1String("user");
    }
    const bool bGuiCall = IsCall(line) && line.strThread == QLatin1String("gui");
    return IsInput(line)
        || (wanted == CLineIndex::InputsAndGuiCalls && bGuiCall && !CExpectedCalls::IsQuestion(line.strOperation));
}

} // namespace

CLineIndex::CLineIndex(const CRecordedRun& run)
{
    for (const SRecordedLine& line : run.GetLines()) {
        for (const EnWanted wanted : { Messages, UserSteps, Inputs, InputsAndGuiCalls }) {
            if (IsWanted(line, wanted)) {
                listLine[wanted].append(&line);
            }
        }
    }
}

const SRecordedLine* CLineIndex::FindNext(quint64 nNumber, EnWanted wanted) const
{
    const QVector<const SRecordedLine*>& vecLine = listLine[wanted];
    const auto it = std::lower_bound(vecLine.begin(), vecLine.end(), nNumber,
                                     [](const SRecordedLine* pLine, quint64 n) { return pLine->nNumber < n; });
    return it == vecLine.end() ? nullptr : *it;
}
