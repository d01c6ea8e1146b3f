#include "tsan/TsanOrder.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QThread>
#include <QThreadPool>

using TsanQt::Original;
using TsanQt::PutIn;
using TsanQt::PutOut;
using TsanQt::TakeIn;
using TsanQt::TakeOut;

namespace {

/// A job of the pool between the two points that order it: what its starter did comes before it, what
/// it did before the end of QThreadPool::waitForDone.
class COrderedJob final : public QRunnable
{
public:
    COrderedJob(QRunnable* pJobIn, const QThreadPool* pPoolIn) : pJob(pJobIn), pPool(pPoolIn), bOwns(pJobIn->autoDelete()) { }

    void run() override
    {
        TakeIn(pJob);
        pJob->run();
        PutIn(pPool);
        if (bOwns) {
            delete pJob;
        }
    }

private:
    QRunnable* pJob;
    const QThreadPool* pPool;
    bool bOwns;
};

/// What a thread does until it emits QThread::finished comes before the slots of that signal. Of the slots of one thread
/// this one has to be the first, since the others may be delivered while it runs.
void OrderBeforeFinished(QThread* pThread)
{
    QObject::connect(pThread, &QThread::finished, [pThread] { PutIn(pThread); });
}

/// What a thread does at all comes before the end of QThread::wait: also the destructors that run behind
/// QThread::finished, of objects that are deleted later and of what QThreadStorage holds. The dispatcher goes last.
void OrderBeforeWait(QThread* pThread)
{
    QObject::connect(QAbstractEventDispatcher::instance(), &QObject::destroyed, [pThread] { PutOut(pThread); });
}

using FnConstructor = void (*)(QThread*, QObject*);

} // namespace

// A constructor can be defined a second time under its symbols only: of a QThread, and of the base of another class.
extern "C" {

void TsanQtMakeThread(QThread* pThread, QObject* pParent) asm("_ZN7QThreadC1EP7QObject");
void TsanQtMakeThreadBase(QThread* pThread, QObject* pParent) asm("_ZN7QThreadC2EP7QObject");

void TsanQtMakeThread(QThread* pThread, QObject* pParent)
{
    static const auto fnOriginal = Original<FnConstructor>("_ZN7QThreadC1EP7QObject");
    fnOriginal(pThread, pParent);
    OrderBeforeFinished(pThread);
}

void TsanQtMakeThreadBase(QThread* pThread, QObject* pParent)
{
    static const auto fnOriginal = Original<FnConstructor>("_ZN7QThreadC2EP7QObject");
    fnOriginal(pThread, pParent);
    OrderBeforeFinished(pThread);
}
}

void QThread::start(Priority priority)
{
    static const auto fnOriginal = Original<void (*)(QThread*, Priority)>("_ZN7QThread5startENS_8PriorityE");
    connect(this, &QThread::started, [this] { OrderBeforeWait(this); });
    PutIn(this);
    fnOriginal(this, priority);
}

bool QThread::wait(unsigned long time)
{
    static const auto fnOriginal = Original<bool (*)(QThread*, unsigned long)>("_ZN7QThread4waitEm");
    const bool bEnded = fnOriginal(this, time);
    if (bEnded) {
        TakeOut(this);
    }
    return bEnded;
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto fnOriginal = Original<bool (*)(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool bEnded = fnOriginal(this, deadline);
    if (bEnded) {
        TakeOut(this);
    }
    return bEnded;
}

void QThread::quit()
{
    static const auto fnOriginal = Original<void (*)(QThread*)>("_ZN7QThread4quitEv");
    PutIn(this);
    fnOriginal(this);
}

void QThread::exit(int retcode)
{
    static const auto fnOriginal = Original<void (*)(QThread*, int)>("_ZN7QThread4exitEi");
    PutIn(this);
    fnOriginal(this, retcode);
}

void QThreadPool::start(QRunnable* runnable, int priority)
{
    static const auto fnOriginal = Original<void (*)(QThreadPool*, QRunnable*, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    auto* pOrdered = new COrderedJob(runnable, this);
    PutIn(runnable);
    fnOriginal(this, pOrdered, priority);
}

void QThreadPool::start(std::function<void()> functionToRun, int priority)
{
    start(QRunnable::create(std::move(functionToRun)), priority);
}

bool QThreadPool::waitForDone(int msecs)
{
    static const auto fnOriginal = Original<bool (*)(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool bDone = fnOriginal(this, msecs);
    if (bDone) {
        TakeIn(this);
    }
    return bDone;
}
