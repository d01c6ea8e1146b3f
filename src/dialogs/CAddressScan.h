#pragma once

#include <QSet>

/// The walk over the addresses that a new processor may be offered, in order. Each place runs up to 254
/// and then starts again at 0 while the place before it goes up by one, so no address with 255 in any
/// place is ever met. Addresses are in host order.
struct SAddressScan
{
    /// Places the walk at nStart, 192.168.1.10 unless told otherwise.
    explicit SAddressScan(quint32 nStart = nFirst);

    /// The address that the walk stands on.
    quint32 GetAddress() const;

    /// Goes one address on. False, and stays, on 254.254.254.254, the last one.
    bool Next();

    /// The first address from nStart on that is not in setTaken; the last one if all are taken.
    static quint32 FindFree(const QSet<quint32>& setTaken, quint32 nStart = nFirst);

    static constexpr quint32 nFirst = 0xC0A8010A; ///< 192.168.1.10
    static constexpr int nPlaces = 4;
    static constexpr int nHighest = 254; ///< of each place

    int arrPlace[nPlaces]; ///< the four numbers of the address, the first one leftmost
};
