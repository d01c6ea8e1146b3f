#include "dialogs/CAddressScan.h"

#include <algorithm>

CAddressScan::CAddressScan(quint32 nStart)
{
    for (auto it = arrPlace.rbegin(); it != arrPlace.rend(); ++it) {
        *it = int(nStart & 0xFF);
        nStart >>= 8;
    }
}

quint32 CAddressScan::GetAddress() const
{
    quint32 nIP = 0;
    for (int nPlace : arrPlace) {
        nIP = (nIP << 8) | quint32(nPlace);
    }
    return nIP;
}

bool CAddressScan::Next()
{
    const auto itLast = std::find_if(arrPlace.rbegin(), arrPlace.rend(), [](int nPlace) { return nPlace < nHighest; });
    if (itLast == arrPlace.rend()) {
        return false;
    }
    ++*itLast;
    std::fill(itLast.base(), arrPlace.end(), 0);
    return true;
}

quint32 CAddressScan::FindFree(const QSet<quint32>& setTaken, quint32 nStart)
{
    CAddressScan scan(nStart);
    while (setTaken.contains(scan.GetAddress()) && scan.Next()) { }
    return scan.GetAddress();
}
