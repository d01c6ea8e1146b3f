#include "journal/replay/CReplayLibrary.h"

#include "journal/replay/CHostAnswers.h"
#include "journal/replay/CReplayCore.h"
#include "journal/replay/objects/CReplayObjects.h"

CReplayLibrary::CReplayLibrary(const CRecordedRun& runIn)
    : pCore(std::make_unique<CReplayCore>(runIn, [this](const SReplayDifference& difference) { emit Differed(difference); })),
      pHostAnswers(std::make_unique<CHostAnswers>(*pCore)), pPanelObjects(std::make_unique<CReplayObjects>(*pCore)),
      pHostObjects(std::make_unique<CReplayObjects>(*pHostAnswers))
{
    qRegisterMetaType<SReplayDifference>();
}

// The objects go when no call is inside any more.
CReplayLibrary::~CReplayLibrary()
{
    pCore->Close();
}

SControlPointers CReplayLibrary::GetPointers()
{
    return pPanelObjects->GetPointers();
}

SControlPointers CReplayLibrary::GetHostPointers()
{
    return pHostObjects->GetPointers();
}

void CReplayLibrary::ShowFirstState()
{
    pCore->ShowFirstState();
}

void CReplayLibrary::Deliver(const SRecordedLine& line)
{
    pCore->Deliver(line);
}

bool CReplayLibrary::HasCaughtUp(quint64 nNumber) const
{
    return pCore->HasCaughtUp(nNumber);
}

void CReplayLibrary::Miss(quint64 nNumber)
{
    pCore->Miss(nNumber);
}

void CReplayLibrary::Release()
{
    pCore->Release();
}

bool CReplayLibrary::AwaitJobs(std::chrono::milliseconds timeMost)
{
    return pCore->AwaitJobs(timeMost);
}

QUuid CReplayLibrary::GetPanelId(const QUuid& idRecorded) const
{
    return pCore->GetPanelId(idRecorded);
}

bool CReplayLibrary::HasDiffered() const
{
    return pCore->HasDiffered();
}
