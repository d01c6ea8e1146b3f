#include "Flatness.h"

#include "Holdings.h"

#include <QPixmapCache>
#include <QtTest>

#include <cstdio>

namespace {

constexpr int nBlocks = 5; // the first one for the caches

// A list in Qt that takes its next size once in a while is no growth; an entry more in a list with each round is.
constexpr qint64 nBytesOnce = 4096;
constexpr qint64 nBytesPerRound = 2;

SHoldings RunBlock(int nRounds, const std::function<void()>& fnRound)
{
    for (int n = 0; n < nRounds && !QTest::currentTestFailed(); ++n) {
        fnRound();
    }
    return Holdings::Take();
}

QString Measure(int nRounds, const std::function<void()>& fnRound, int nPatienceMs)
{
    const int nBlock = nRounds / nBlocks;
    const SHoldings first = RunBlock(nBlock, fnRound);
    for (int n = 2; n <= nBlocks; ++n) {
        const SHoldings holdings = RunBlock(nBlock, fnRound);
        // Qt Test's own lines end with the two thousandth, and the platform warns with each menu.
        std::printf("%d rounds: %s\n", n * nBlock, qPrintable(Holdings::Describe(holdings)));
    }
    const qint64 nBytesAllowed = nBytesOnce + nBytesPerRound * (nRounds - nBlock);
    QString strGrowth;
    Q_UNUSED(QTest::qWaitFor(
        [&] {
            strGrowth = Holdings::DescribeGrowth(first, Holdings::Take(), nBytesAllowed);
            return strGrowth.isEmpty();
        },
        nPatienceMs))
    return strGrowth;
}

} // namespace

QString Flatness::FindGrowth(int nRounds, const std::function<void()>& fnRound, int nPatienceMs)
{
    QPixmapCache::setCacheLimit(0); // the cache has a limit of its own, 10 MB, far above what is looked for here
    const QString strGrowth = Measure(nRounds, fnRound, nPatienceMs);
    // What is taken late but once, as for a thread, does not come again; a list that doubles its room does in twice as many.
    return strGrowth.isEmpty() ? strGrowth : Measure(2 * nRounds, fnRound, nPatienceMs);
}

int Flatness::CountRounds(int nYears, int nDay)
{
    return qEnvironmentVariableIsSet("PTV_FLAT_YEARS") ? nYears : nDay;
}
