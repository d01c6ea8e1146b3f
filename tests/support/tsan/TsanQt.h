#pragma once

class QEvent;
class QObject;

/// What libQt5Core orders between threads, told to the thread sanitizer.
///
/// The distribution's Qt is not instrumented, so the sanitizer does not see that a QMutex locks or that
/// a queued signal is delivered after it was sent, and would report correct code. The sources of this
/// folder define the members of Qt that lock, wait, start, end, post and emit, a second time: the
/// program's definitions win over the library's, call the library's own (found as the next symbol of
/// that name), and tell the sanitizer what the call orders. They are compiled without the sanitizer and
/// linked into each test program of a thread sanitizer build, and only there.
///
///     TsanLocks.cpp      QReadWriteLock, QMutex, QWaitCondition, QSemaphore
///     TsanEvents.cpp     emitted signals, invokeMethod, posted events, deleteLater, delivery
///     TsanThreads.cpp    QThread, QThreadPool
///     TsanFutures.cpp    results and ends of futures
///
/// Nor does it see what Qt does to the containers of a program. Two more files tell it what these calls read and write:
///
///     TsanLists.cpp      QList: all that adds, removes, moves, copies or frees its elements
///     TsanValues.cpp     assignments of QString and QByteArray; insertion into a QMap, removal from it
///
/// QVector and QHash need nothing: their accesses are compiled into the program.
///
/// Not seen: a change of the characters of a QString in place, such as by append; a race on the copy of a queued
/// signal's argument (suppressions/thread.supp); a value that is changed after the queued signal that announced it;
/// a signal that Qt emits itself, such as objectNameChanged (the library's own calls pass by the program's
/// definitions), but for those of threads and futures, so that its queued slot may be reported falsely; what runs
/// inside QThread::create (its call passes through a once-flag inside Qt, in which the sanitizer looks away): a
/// QThread of its own class or a worker object is seen. QThreadPool::tryTake does not find a job, which is wrapped
/// here.
///
/// Each object stands for two points of order: its own address for what goes into it (a lock that was
/// given back, a signal that was emitted, a job that was queued), and the address behind for what comes
/// out of it (an event that was handled, a thread that ended).
namespace TsanQt {

/// Around QCoreApplication::notify, on the receiver's thread.
void BeforeDelivery(QObject* pReceiver, QEvent* pEvent);
void AfterDelivery(QObject* pReceiver);

} // namespace TsanQt
