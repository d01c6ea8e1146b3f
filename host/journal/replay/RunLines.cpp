#include "journal/replay/RunLines.h"

#include "journal/replay/CLineIndex.h"
#include "journal/replay/CRecordedRun.h"

#include <algorithm>

namespace {

bool IsCall(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("call") || line.strKind == QLatin1String("begin");
}

// What comes of a step that is not there cannot come again.
quint64 GetFirstNumber(const CRecordedRun& run, bool bGui)
{
    if (run.HasBeginning() || !bGui) {
        return run.GetStartNumber();
    }
    const SRecordedLine* pStep = CLineIndex(run).FindNext(run.GetStartNumber(), CLineIndex::UserSteps);
    const quint64 nEnd = run.GetTeardownNumber();
    return pStep ? std::min(pStep->nNumber, nEnd) : nEnd;
}

/// Knows the host's own calls.
class CHostCalls
{
public:
    /// Any line, in its place.
    void Follow(const SRecordedLine& line)
    {
        if (line.strOperation == QLatin1String("save")) {
            bAsking = line.fields.value(QLatin1String("asked")).toBool();
        }
        bAsking = bAsking && line.strOperation != QLatin1String("save answered");
    }

    bool Contains(const SRecordedLine& line)
    {
        bGone = bGone || line.strOperation == QLatin1String("Detach");
        if (line.strThread != QLatin1String("gui")) {
            return false;
        }
        const bool bTree = line.strOperation.endsWith(QLatin1String("Tree"));
        const bool bPane = line.strOperation == QLatin1String("IsSimulatorPane");
        const bool bElsewhere = bAsking
            && (line.strOperation == QLatin1String("GetListFilePath") || line.strOperation == QLatin1String("ExportList"));
        const bool bHost = bPane || (bTree && bPaneBefore) || bSaved || bElsewhere;
        bPaneBefore = bPane;
        bSaved = bSaved || (bGone && line.strOperation == QLatin1String("ExportList"));
        return bHost;
    }

private:
    bool bPaneBefore = false; ///< the host asks for the pane first; the panel does not on this thread
    bool bAsking = false;     ///< the host asks the user where the list is to be saved, and saves it there
    bool bGone = false;       ///< the panel's worker
    bool bSaved = false;      ///< the last call of the panel
};

/// Jobs that were under way where the file begins have no beginning themselves.
class CEarlierJobs
{
public:
    explicit CEarlierJobs(const CRecordedRun& run) : bStarted(run.HasBeginning()) { }

    bool Contains(const SRecordedLine& line)
    {
        const bool bGui = line.strThread == QLatin1String("gui");
        bStarted = bStarted || (bGui && line.strOperation == QLatin1String("SetBusy"));
        return !bStarted && !bGui && !line.strThread.startsWith(QLatin1String("worker"));
    }

private:
    bool bStarted; ///< a job has
};

} // namespace

bool RunLines::IsComplete(const CRecordedRun& run)
{
    return run.HasEnd() && (run.GetLines().isEmpty() || run.GetLines().last().nNumber <= run.GetCompleteTo());
}

QVector<const SRecordedLine*> RunLines::GetPanelCalls(const CRecordedRun& run)
{
    const quint64 nFirst = GetFirstNumber(run, false);
    const quint64 nFirstOfGui = GetFirstNumber(run, true);
    CHostCalls hostCalls;
    CEarlierJobs earlierJobs(run);
    QVector<const SRecordedLine*> vecCall;
    for (const SRecordedLine& line : run.GetLines()) {
        const quint64 nFrom = line.strThread == QLatin1String("gui") ? nFirstOfGui : nFirst;
        hostCalls.Follow(line);
        const bool bWanted = IsCall(line) && line.nNumber >= nFrom && line.nNumber <= run.GetCompleteTo();
        if (bWanted && !hostCalls.Contains(line) && !earlierJobs.Contains(line)) {
            vecCall.append(&line);
        }
    }
    return vecCall;
}
