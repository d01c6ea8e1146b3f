#pragma once

#include <QSet>

#include <array>

/// The walk over the addresses that a new processor may be offered, in order. Each place runs up to 254
/// and then starts again at 0 while the place before it goes up by one, so no address with 255 in any
/// place is ever met. Addresses are in host order.
class CAddressScan
{
public:
    /// Starts the walk at nStart, by default 192.168.1.10.
    explicit CAddressScan(quint32 nStart = nFirst);

    /// The address that the walk has reached.
    quint32 GetAddress() const;

    /// Moves on by one address. On 254.254.254.254, the last one, stays there and returns false.
    bool Next();

    /// The first address from nStart on that is not in setTaken; the last one if all are taken.
    static quint32 FindFree(const QSet<quint32>& setTaken, quint32 nStart = nFirst);

    static constexpr quint32 nFirst = 0xC0A8010A; ///< 192.168.1.10

private:
    static constexpr int nHighest = 254; ///< of each place

    std::array<int, 4> arrPlace; ///< the four numbers of the address, the first one leftmost
};
