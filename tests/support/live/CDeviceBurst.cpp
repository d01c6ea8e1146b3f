#include "live/CDeviceBurst.h"

#include "CorvidControl/objects/CControlLibrary.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"

CDeviceBurst::CDeviceBurst(CControlLibrary& libraryIn, bool bMixedIn, int nEventsIn, std::chrono::milliseconds timeIn,
                           int nFirstIn)
    : library(libraryIn), bMixed(bMixedIn), nEvents(nEventsIn), time(timeIn), nFirst(nFirstIn)
{
    const SProcessorAllNode node = library.processors.GetTree(false);
    for (const SProcessorGroupNode& group : node.listGroup) {
        listGroup.append(group.idNode);
        for (const SProcessorNode& processor : group.listProcessor) {
            listDevice.append(processor.idNode);
        }
    }
    for (int n = 0; n < nThreads; ++n) {
        vecThread.emplace_back([this, n] { Run(n); });
    }
}

CDeviceBurst::~CDeviceBurst()
{
    Join();
}

bool CDeviceBurst::IsOver() const
{
    return nRunning == 0;
}

void CDeviceBurst::Stop()
{
    const std::lock_guard<std::mutex> lock(mutex);
    bStop = true;
    condStop.notify_all();
}

void CDeviceBurst::Join()
{
    for (std::thread& thread : vecThread) {
        if (thread.joinable()) {
            thread.join();
        }
    }
}

void CDeviceBurst::Run(int nThread)
{
    const auto timeStart = std::chrono::steady_clock::now();
    for (int nEvent = nThread; nEvent < nEvents; nEvent += nThreads) {
        if (!AwaitTurn(timeStart + time * nEvent / nEvents)) {
            break;
        }
        Raise(nThread, nFirst + nEvent);
    }
    --nRunning;
}

// False when it was stopped.
bool CDeviceBurst::AwaitTurn(std::chrono::steady_clock::time_point timeTurn)
{
    std::unique_lock<std::mutex> lock(mutex);
    return !condStop.wait_until(lock, timeTurn, [this] { return bStop; });
}

void CDeviceBurst::Raise(int nThread, int nEvent)
{
    const int nRound = nEvent / nThreads;
    if (bMixed && nRound % 10 == 9) {
        RaiseOther(nEvent);
        return;
    }
    const int nOwn = listDevice.size() / nThreads;
    const QUuid id = listDevice.at(nThread * nOwn + nRound % nOwn);
    switch (nRound / nOwn % 3) {
    case 0:
        library.network.SetOnline(id, nRound / nOwn % 2);
        break;
    case 1:
        library.network.SetRole(id, (nRound / nOwn / 3 + 1) % 3);
        break;
    default:
        library.network.SetProject(id, QStringLiteral("Project %1").arg(nRound));
    }
}

void CDeviceBurst::RaiseOther(int nEvent)
{
    const QUuid idGroup = listGroup.at(nEvent % listGroup.size());
    const int nRound = nEvent / nThreads / 10;
    switch (nRound % 8) {
    case 0:
        library.processors.SetExpanded(idGroup, nRound % 16 == 0);
        break;
    case 1:
        library.processors.SetChief(idGroup, nRound % 16 == 1 ? listDevice.at(nEvent % listDevice.size()) : QUuid());
        break;
    case 2:
        library.processors.SetSelection({ idGroup });
        break;
    case 3:
        library.host.SetLocked(nRound % 16 == 3);
        break;
    case 4:
        library.host.SetProject(QStringLiteral("Show %1").arg(nRound));
        break;
    case 5:
        library.host.SetChiefMode(nRound % 16 == 5);
        break;
    default:
        g_pRuntimeControl->PostMessage(nRound % 8 == 6 ? MessageDeleteFinished : MessageSelectionRefused);
    }
}
