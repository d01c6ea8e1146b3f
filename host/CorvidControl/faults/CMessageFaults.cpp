#include "CorvidControl/faults/CMessageFaults.h"

#include <algorithm>

void CMessageFaults::Lose(int nCount)
{
    const Lock lock(mutex);
    nLose += nCount;
}

void CMessageFaults::Double(int nCount)
{
    const Lock lock(mutex);
    nDouble += nCount;
}

void CMessageFaults::Reorder(int nCount)
{
    const Lock lock(mutex);
    nReorder += nCount;
}

std::vector<SMessageOnItsWay> CMessageFaults::Pass(const std::vector<SMessageOnItsWay>& vecMessage, Time timeNow)
{
    const Lock lock(mutex);
    std::vector<SMessageOnItsWay> vecOut;
    for (const SMessageOnItsWay& message : vecMessage) {
        if (message.pOnly) {
            vecOut.push_back(message);
        } else if (!Take(nLose)) {
            Admit(lock, message, timeNow, vecOut);
        }
    }
    if (timeDue <= timeNow) {
        Release(lock, vecOut);
    }
    return vecOut;
}

CMessageFaults::Time CMessageFaults::GetDue() const
{
    const Lock lock(mutex);
    return timeDue;
}

bool CMessageFaults::Take(int& nLeft)
{
    const bool bLeft = nLeft > 0;
    nLeft -= bLeft ? 1 : 0;
    return bLeft;
}

// The last of those that change places lets all of them go.
void CMessageFaults::Admit(const Lock& lock, const SMessageOnItsWay& message, Time timeNow, std::vector<SMessageOnItsWay>& vecOut)
{
    const int nTimes = Take(nDouble) ? 2 : 1;
    if (!Take(nReorder)) {
        vecOut.insert(vecOut.end(), nTimes, message);
        return;
    }
    vecWaiting.insert(vecWaiting.end(), nTimes, message);
    timeDue = std::min(timeDue, timeNow + timeGather);
    if (nReorder == 0) {
        Release(lock, vecOut);
    }
}

void CMessageFaults::Release(const Lock& /*lock*/, std::vector<SMessageOnItsWay>& vecOut)
{
    vecOut.insert(vecOut.end(), vecWaiting.rbegin(), vecWaiting.rend());
    vecWaiting.clear();
    nReorder = 0;
    timeDue = Time::max();
}
