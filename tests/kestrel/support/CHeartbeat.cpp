#include "CHeartbeat.h"

#include <algorithm>

using namespace std::chrono;

CHeartbeat::CHeartbeat() : fileTurns(QStringLiteral("/proc/thread-self/schedstat"))
{
    if (!fileTurns.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        qFatal("%s: %s", qPrintable(fileTurns.fileName()), qPrintable(fileTurns.errorString()));
    }
    timeLast = ReadTime();
    timer.start(1, Qt::PreciseTimer, this);
}

milliseconds CHeartbeat::GetLongestGap() const
{
    return duration_cast<milliseconds>(timeLongest);
}

void CHeartbeat::timerEvent(QTimerEvent* event)
{
    Q_UNUSED(event)
    const nanoseconds timeNow = ReadTime();
    timeLongest = std::max(timeLongest, timeNow - timeLast);
    timeLast = timeNow;
    ++nBeats;
}

// A clock that stands still while the thread waits for its turn, which is the second number in the file.
nanoseconds CHeartbeat::ReadTime()
{
    fileTurns.seek(0);
    const nanoseconds timeWaited(fileTurns.read(64).split(' ').value(1).toLongLong());
    return steady_clock::now().time_since_epoch() - timeWaited;
}
