#include "dialogs/CAddressScan.h"

CAddressScan::CAddressScan(quint32 nStart)
{
    for (int i = nPlaces - 1; i >= 0; --i) {
        arrPlace[i] = int(nStart & 0xFF);
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
    int i = nPlaces - 1;
    while (i >= 0 && arrPlace[i] >= nHighest) {
        --i;
    }
    if (i < 0) {
        return false;
    }
    ++arrPlace[i];
    while (++i < nPlaces) {
        arrPlace[i] = 0;
    }
    return true;
}

quint32 CAddressScan::FindFree(const QSet<quint32>& setTaken, quint32 nStart)
{
    CAddressScan scan(nStart);
    while (setTaken.contains(scan.GetAddress()) && scan.Next()) { }
    return scan.GetAddress();
}
