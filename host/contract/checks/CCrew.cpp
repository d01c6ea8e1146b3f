#include "contract/checks/CCrew.h"

#include "contract/checks/Patience.h"

#include <algorithm>
#include <thread>

namespace {

constexpr std::chrono::milliseconds timeGrace{ 2000 }; // for calls under way at the end

QString Describe(const QString& strName, std::chrono::milliseconds time, bool bReturned)
{
    return bReturned ? QStringLiteral("%1 took %2 ms").arg(strName).arg(time.count())
                     : QStringLiteral("%1 had not returned after %2 ms").arg(strName).arg(time.count());
}

} // namespace

void CCrew::Add(const std::vector<SCall>& vecCall)
{
    vecWorker.push_back(std::make_shared<SWorker>());
    vecWorker.back()->vecCall = vecCall;
}

QString CCrew::Run(std::chrono::milliseconds time)
{
    const auto pStop = std::make_shared<std::atomic<bool>>(false);
    for (const std::shared_ptr<SWorker>& pWorker : vecWorker) {
        std::thread([pWorker, pStop] { Work(pWorker, pStop); }).detach();
    }
    QString strFault;
    const auto find = [&] {
        for (const std::shared_ptr<SWorker>& pWorker : vecWorker) {
            strFault = strFault.isEmpty() ? FindFault(*pWorker) : strFault;
        }
        return !strFault.isEmpty();
    };
    Patience::Await(find, time);
    *pStop = true;
    const auto isIdle = [&] {
        return find() || std::all_of(vecWorker.begin(), vecWorker.end(), [](const std::shared_ptr<SWorker>& pWorker) {
                   const std::lock_guard<std::mutex> lock(pWorker->mutex);
                   return !pWorker->pRunning || pWorker->pRunning->timeMost.count() == 0;
               });
    };
    Patience::Await(isIdle, timeGrace);
    return strFault;
}

void CCrew::Work(const std::shared_ptr<SWorker>& pWorker, const std::shared_ptr<std::atomic<bool>>& pStop)
{
    for (int nTurn = 0; !*pStop; ++nTurn) {
        for (const SCall& call : pWorker->vecCall) {
            Make(*pWorker, call, nTurn);
        }
        std::this_thread::yield();
    }
}

void CCrew::Make(SWorker& worker, const SCall& call, int nTurn)
{
    {
        const std::lock_guard<std::mutex> lock(worker.mutex);
        worker.pRunning = &call;
        worker.timeStart = std::chrono::steady_clock::now();
    }
    call.call(nTurn);
    const std::lock_guard<std::mutex> lock(worker.mutex);
    worker.pRunning = nullptr;
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - worker.timeStart);
    if (call.timeMost.count() > 0 && time > call.timeMost) {
        worker.strSlow = Describe(call.strName, time, true);
    }
}

QString CCrew::FindFault(SWorker& worker)
{
    const std::lock_guard<std::mutex> lock(worker.mutex);
    if (!worker.strSlow.isEmpty() || !worker.pRunning || worker.pRunning->timeMost.count() == 0) {
        return worker.strSlow;
    }
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - worker.timeStart);
    return time > worker.pRunning->timeMost ? Describe(worker.pRunning->strName, time, false) : QString();
}
