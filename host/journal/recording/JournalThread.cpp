#include "journal/recording/JournalThread.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <typeinfo>

namespace {

// Pool threads and threads that Qt did not start are known by their class, which Qt keeps private.
QByteArray GetKind()
{
    const QThread& thread = *QThread::currentThread();
    const QByteArray className = typeid(thread).name();
    if (className.contains("QThreadPoolThread")) {
        return "pool";
    }
    return className.contains("QAdoptedThread") ? "other" : "worker";
}

QByteArray MakeName()
{
    static std::atomic<int> nNext{ 2 };
    return JournalThread::IsGui() ? QByteArray("gui") : GetKind() + '-' + QByteArray::number(nNext++);
}

} // namespace

const QByteArray& JournalThread::GetName()
{
    thread_local const QByteArray name = MakeName();
    return name;
}

bool JournalThread::IsGui()
{
    return QCoreApplication::instance() && QThread::currentThread() == QCoreApplication::instance()->thread();
}
