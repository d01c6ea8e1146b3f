#include "CorvidControl/list/JobNumber.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>

namespace {

// The system's own numbers of threads come back as soon as a thread has ended.
quint64 GetOwn()
{
    static std::atomic<quint64> nLast{ 0 };
    thread_local const quint64 nOwn = ++nLast;
    return nOwn;
}

} // namespace

quint64 JobNumber::Get()
{
    const QCoreApplication* pApplication = QCoreApplication::instance();
    return pApplication && pApplication->thread() == QThread::currentThread() ? 0 : GetOwn();
}
