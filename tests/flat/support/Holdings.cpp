#include "Holdings.h"

#include "ObjectCensus.h"
#include "Patience.h"
#include "ProcessThreads.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDir>
#include <QStringList>
#include <QThreadPool>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // the compiler comes without the header
#else
#include <malloc.h>
#endif

namespace {

qint64 CountBytes()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

qint64 CountTimers()
{
    const QAbstractEventDispatcher* pDispatcher = QAbstractEventDispatcher::instance();
    qint64 nTimers = 0;
    for (const QObject* pObject : ObjectCensus::GetLiving()) {
        nTimers += pDispatcher->registeredTimers(const_cast<QObject*>(pObject)).size(); // compares addresses
    }
    return nTimers;
}

qint64 CountHandles()
{
    const QDir folder(QStringLiteral("/proc/self/fd"));
    return folder.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

void Settle()
{
    QThreadPool::globalInstance()->waitForDone(nPatience); // ends idle threads too
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void AddGrowth(QStringList& listGrowth, qint64 nMore, const char* szWhat)
{
    if (nMore > 0) {
        listGrowth.append(QStringLiteral("%1 %2").arg(nMore).arg(QLatin1String(szWhat)));
    }
}

} // namespace

SHoldings Holdings::Take()
{
    Settle();
    SHoldings holdings;
    holdings.nObjects = qint64(ObjectCensus::GetLiving().size());
    holdings.nHandles = CountHandles();
    holdings.nThreads = ProcessThreads::GetIds().size();
    holdings.nTimers = CountTimers();
    holdings.nBytes = CountBytes();
    return holdings;
}

QString Holdings::DescribeGrowth(const SHoldings& before, const SHoldings& after, qint64 nBytesAllowed)
{
    QStringList listGrowth;
    if (after.nBytes - before.nBytes > nBytesAllowed) {
        AddGrowth(listGrowth, after.nBytes - before.nBytes, "bytes");
    }
    AddGrowth(listGrowth, after.nObjects - before.nObjects, "objects");
    AddGrowth(listGrowth, after.nHandles - before.nHandles, "handles");
    AddGrowth(listGrowth, after.nThreads - before.nThreads, "threads");
    AddGrowth(listGrowth, after.nTimers - before.nTimers, "timers");
    return listGrowth.join(QStringLiteral(", "));
}

QString Holdings::Describe(const SHoldings& holdings)
{
    return QStringLiteral("%1 bytes, %2 objects, %3 handles, %4 threads, %5 timers")
        .arg(holdings.nBytes)
        .arg(holdings.nObjects)
        .arg(holdings.nHandles)
        .arg(holdings.nThreads)
        .arg(holdings.nTimers);
}
