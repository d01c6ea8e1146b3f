#include "live/CQueueWatch.h"

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CBaseThread.h"

#include <algorithm>

namespace {

/// Names what is protected; there is no object of it.
class CAccess : public CBaseThread
{
public:
    static constexpr auto pQueue = &CAccess::listMessage;
    static constexpr auto pQueueMutex = &CAccess::mutexQueue;
};

int CountQueued(CBaseThread* pWorker)
{
    const std::lock_guard<std::mutex> lock(pWorker->*CAccess::pQueueMutex);
    return (pWorker->*CAccess::pQueue).size();
}

bool MakesRead(int nMessage)
{
    static const QVector<int> vecRefreshing{ 1, 7, 9, 10, 14, 15, 32, 53, 54 };
    return vecRefreshing.contains(nMessage);
}

template <typename Call> void ForEachSubject(Call fnCall)
{
    fnCall(g_pPrcBasicControl);
    fnCall(g_pPrcListControl);
    fnCall(g_pRuntimeControl);
    fnCall(g_pPrcRuntimeControl);
    fnCall(g_pProjectManageControl);
    fnCall(g_pProtocalControl);
    fnCall(g_pPreferenceControl);
}

} // namespace

void CQueueWatch::SetWorker(CBaseThread* pWorkerIn)
{
    const std::lock_guard<std::mutex> lock(mutex);
    pWorker = pWorkerIn;
}

void CQueueWatch::SetClock(const std::function<Time()>& fnNowIn)
{
    const std::lock_guard<std::mutex> lock(mutex);
    fnNow = fnNowIn;
}

void CQueueWatch::AttachAll()
{
    ForEachSubject([this](auto* pSubject) { pSubject->Attach(this); });
}

void CQueueWatch::DetachAll()
{
    ForEachSubject([this](auto* pSubject) { pSubject->Detach(this); });
}

void CQueueWatch::Notify(int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutex);
    setCome.insert(nMessage);
    if (MakesRead(nMessage)) {
        vecTime.append(fnNow());
    }
    if (pWorker) {
        nLongestQueue = std::max(nLongestQueue, CountQueued(pWorker));
    }
}

void CQueueWatch::Clear()
{
    const std::lock_guard<std::mutex> lock(mutex);
    setCome.clear();
    vecTime.clear();
    nLongestQueue = 0;
}

bool CQueueWatch::HasCome(int nMessage) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return setCome.contains(nMessage);
}

int CQueueWatch::GetCount() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return vecTime.size();
}

int CQueueWatch::GetMostInASecond() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return CountMostInASecond(vecTime);
}

int CQueueWatch::GetQueued() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return pWorker ? CountQueued(pWorker) : 0;
}

int CQueueWatch::GetLongestQueue() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nLongestQueue;
}

int CQueueWatch::CountMostInASecond(const QVector<Time>& vecTime)
{
    int nMost = 0;
    for (int nFirst = 0, nEnd = 0; nEnd < vecTime.size(); ++nEnd) {
        while (vecTime.at(nEnd) - vecTime.at(nFirst) >= std::chrono::seconds(1)) {
            ++nFirst;
        }
        nMost = std::max(nMost, nEnd - nFirst + 1);
    }
    return nMost;
}
