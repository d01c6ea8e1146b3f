#include "CHeartbeat.h"

#include <algorithm>

using namespace std::chrono;

namespace {

constexpr milliseconds timePace{ 1 };
constexpr milliseconds timeInTime{ 5 }; ///< a sleep that ends so much later ended in time

int GetMilliseconds(nanoseconds time)
{
    return static_cast<int>(duration_cast<milliseconds>(time).count());
}

} // namespace

CHeartbeat::CHeartbeat() : fileTurns(QStringLiteral("/proc/thread-self/schedstat")), pacer([this] { RunPacer(); })
{
    if (!fileTurns.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        qFatal("%s: %s", qPrintable(fileTurns.fileName()), qPrintable(fileTurns.errorString()));
    }
    passedLast = ReadPassed();
    timer.start(1, Qt::PreciseTimer, this);
}

CHeartbeat::~CHeartbeat()
{
    bEnd = true;
    pacer.join();
}

milliseconds CHeartbeat::GetLongestGap() const
{
    return duration_cast<milliseconds>(longest.GetOwn());
}

QString CHeartbeat::GetText() const
{
    return QStringLiteral("%1 ms, of them %2 at work; behind others for %3 ms, held by the machine for %4 ms, in all %5 ms")
        .arg(GetMilliseconds(longest.GetOwn()))
        .arg(GetMilliseconds(longest.timeWorked))
        .arg(GetMilliseconds(longest.timeTurn))
        .arg(GetMilliseconds(longest.timeHeld))
        .arg(GetMilliseconds(longest.timeClock));
}

void CHeartbeat::timerEvent(QTimerEvent* event)
{
    Q_UNUSED(event)
    const SPassed passedNow = ReadPassed();
    const SPassed gap = passedNow - passedLast;
    if (gap.GetOwn() > longest.GetOwn()) {
        longest = gap;
    }
    passedLast = passedNow;
    ++nBeats;
}

CHeartbeat::SPassed CHeartbeat::SPassed::operator-(const SPassed& earlier) const
{
    return { timeClock - earlier.timeClock, timeWorked - earlier.timeWorked, timeTurn - earlier.timeTurn,
             timeHeld - earlier.timeHeld };
}

// On a busy machine both threads wait for the same others.
nanoseconds CHeartbeat::SPassed::GetOwn() const
{
    return timeClock - std::max(timeTurn, timeHeld);
}

// See Documentation/scheduler/sched-stats.rst of the kernel for the file.
CHeartbeat::SPassed CHeartbeat::ReadPassed()
{
    fileTurns.seek(0);
    const QList<QByteArray> listNumber = fileTurns.read(64).split(' ');
    return { steady_clock::now().time_since_epoch(), nanoseconds(listNumber.value(0).toLongLong()),
             nanoseconds(listNumber.value(1).toLongLong()), timeHeld };
}

// Whatever keeps it from its pace is no doing of the thread that is measured.
void CHeartbeat::RunPacer()
{
    auto timeLast = steady_clock::now();
    while (!bEnd) {
        std::this_thread::sleep_for(timePace); // paced: its sleep is what is measured
        const auto timeNow = steady_clock::now();
        if (timeNow - timeLast > timePace + timeInTime) {
            timeHeld = timeHeld.load() + (timeNow - timeLast - timePace);
        }
        timeLast = timeNow;
    }
}
