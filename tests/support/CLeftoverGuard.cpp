#include "CLeftoverGuard.h"

#include "Patience.h"
#include "ProcessThreads.h"

#include <QApplication>
#include <QThreadPool>
#include <QWidget>
#include <QtTest>

#include <cstdio>
#include <thread>

namespace {

QString ThreadName(const QString& strThread)
{
    return QString::fromUtf8(ProcessThreads::Read(strThread, QStringLiteral("comm"))).trimmed();
}

/// Threads that Qt or a sanitizer starts when first needed and keeps for the process.
bool IsKeptByLibrary(const QString& strThread)
{
    static const QStringList listName{ QStringLiteral("QDBusConnection"), QStringLiteral("QXcbEventQueue"), QString() };
    return listName.contains(ThreadName(strThread));
}

QStringList NewThreads(const QStringList& listAtStart)
{
    QStringList listNew;
    for (const QString& strThread : ProcessThreads::GetIds()) {
        if (!listAtStart.contains(strThread) && !IsKeptByLibrary(strThread)) {
            listNew.append(strThread);
        }
    }
    return listNew;
}

/// Qt's own windows: the desktop and the label of tool tips.
bool IsOfQt(const QWidget* pWidget)
{
    return pWidget->windowType() == Qt::Desktop || pWidget->inherits("QTipLabel");
}

int Leftover(const char* pKind, const QString& strName)
{
    std::fprintf(stderr, "FAIL!  : left over: %s %s\n", pKind, qPrintable(strName));
    return 1;
}

} // namespace

CLeftoverGuard::CLeftoverGuard()
{
    // With the first thread a sanitizer starts one of its own, which stays.
    std::thread([] { }).join();
    listThreadAtStart = ProcessThreads::GetIds();
}

int CLeftoverGuard::Report()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ReportJobs() + ReportThreads() + ReportWidgets();
}

int CLeftoverGuard::ReportWidgets() const
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
        return 0;
    }
    int nLeft = 0;
    for (const QWidget* pWidget : QApplication::topLevelWidgets()) {
        if (!IsOfQt(pWidget)) {
            nLeft += Leftover("widget",
                              QLatin1String(pWidget->metaObject()->className()) + QLatin1Char(' ') + pWidget->objectName());
        }
    }
    return nLeft;
}

int CLeftoverGuard::ReportJobs() const
{
    // Also ends the pool's idle threads, which would count as left over otherwise.
    return QThreadPool::globalInstance()->waitForDone(nPatience) ? 0 : Leftover("job", QStringLiteral("in the global pool"));
}

int CLeftoverGuard::ReportThreads() const
{
    if (QTest::qWaitFor([this] { return NewThreads(listThreadAtStart).isEmpty(); }, nPatience)) {
        return 0;
    }
    int nLeft = 0;
    for (const QString& strThread : NewThreads(listThreadAtStart)) {
        nLeft += Leftover("thread", ThreadName(strThread));
    }
    return nLeft;
}
