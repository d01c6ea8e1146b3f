#include "CRecording.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "double/CControlDouble.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "journal/CControlJournal.h"
#include "journal/guard/CGuiGuard.h"
#include "journal/recording/CJournalRecorder.h"

#include <QProcess>

#include <csignal>
#include <thread>

namespace {

/// What a slow handler is: this thread does nothing else meanwhile.
void Block(std::chrono::milliseconds time)
{
    std::this_thread::sleep_for(time); // paced: the time is what the guard measures
}

/// A control library under decorators that are recorded behind the guard.
class CGuardedLibrary
{
public:
    CGuardedLibrary()
    {
        log.SetRecorder(&guard);
        pJournal = std::make_unique<CControlJournal>(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
        writer.Open(recording.GetFolder(), {}, false);
        QObject::connect(&guard, &CGuiGuard::Held, &guard, [this](const SGuiHold& hold) { listHold.append(hold); });
    }

    /// The reports that a loaded machine did not add.
    int Count(const QString& strOperation) const
    {
        return std::count_if(listHold.begin(), listHold.end(),
                             [&](const SGuiHold& hold) { return hold.strOperation == strOperation; });
    }

    QList<QJsonObject> Lines(const QString& strOperation)
    {
        QList<QJsonObject> listFound;
        for (const QJsonObject& line : CRecording::Pick(recording.Read(writer), "guard")) {
            if (line.value("operation").toString() == strOperation) {
                listFound.append(line);
            }
        }
        return listFound;
    }

    CControlDouble control;
    CRecording recording;
    CJournalWriter writer;
    CJournalRecorder recorder{ writer };
    CGuiGuard guard{ recorder };
    CCallLog log{ 64 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pJournal;
    QList<SGuiHold> listHold;
};

} // namespace

/// What holds the GUI thread is seen and said.
class CGuardTest : public QObject
{
    Q_OBJECT

private slots:
    void aSlowCallOnTheGuiThreadIsReportedWithItsOperation()
    {
        CGuardedLibrary library;
        library.control.During("ImportList", [] { Block(std::chrono::milliseconds(60)); });
        g_pPrcListControl->ImportList("/a.kvtl");
        QCOMPARE(library.Count("PrcListControl.ImportList"), 1);
        QVERIFY(library.listHold.constLast().nMilliseconds >= 60 && !library.listHold.constLast().bStall);
        QCOMPARE(library.guard.GetCount(), library.listHold.size());
        QCOMPARE(library.Lines("slow call").constLast().value("during").toString(), QString("PrcListControl.ImportList"));
    }

    void theSameCallOnAnotherThreadIsNot()
    {
        CGuardedLibrary library;
        library.control.During("RefreshProcessors", [] { Block(std::chrono::milliseconds(60)); });
        std::thread([] { g_pPrcBasicControl->RefreshProcessors(); }).join();
        QCOMPARE(library.Count("PrcBasicControl.RefreshProcessors"), 0);
    }

    void aStallOfTheLoopIsReported()
    {
        CGuardedLibrary library;
        library.guard.WatchLoop();
        QTimer::singleShot(0, &library.guard, [] { Block(std::chrono::milliseconds(150)); });
        const auto isStall = [](const SGuiHold& hold) { return hold.bStall && hold.nMilliseconds >= 140; };
        QTRY_VERIFY(std::any_of(library.listHold.begin(), library.listHold.end(), isStall));
        library.guard.LeaveLoop();
        QVERIFY(!library.Lines("stall").isEmpty());
    }

    void aStallIsWrittenWhileItLastsWithTheCallThatMakesIt()
    {
        CGuardedLibrary library;
        library.guard.WatchLoop();
        bool bWritten = false;
        library.control.During("ImportList", [&] {
            QElapsedTimer timer;
            timer.start();
            while (!bWritten && timer.elapsed() < nPatience) {
                const QList<QJsonObject> listLine = library.Lines("stall begins");
                bWritten = !listLine.isEmpty()
                    && listLine.constLast().value("during").toString() == QString("PrcListControl.ImportList");
            }
        });
        bool bDone = false;
        QTimer::singleShot(0, &library.guard, [&bDone] {
            g_pPrcListControl->ImportList("/a.kvtl");
            bDone = true;
        });
        QTRY_VERIFY(bDone);
        QVERIFY(bWritten);
    }

    void aStallByAReportedCallIsCountedOnce()
    {
        CGuardedLibrary library;
        library.guard.WatchLoop();
        library.control.During("ImportList", [] { Block(std::chrono::milliseconds(150)); });
        int nCalls = 0;
        QTimer timer; // again and again: on a loaded machine much of a stall may be something else
        connect(&timer, &QTimer::timeout, &library.guard, [&nCalls] {
            ++nCalls;
            g_pPrcListControl->ImportList("/a.kvtl");
        });
        timer.start(300);
        const auto fnByImport = [&] {
            const QList<QJsonObject> listStall = library.Lines("stall");
            return std::any_of(listStall.begin(), listStall.end(), [](const QJsonObject& line) {
                return line.value("during").toString() == QString("PrcListControl.ImportList");
            });
        };
        QTRY_VERIFY(fnByImport());
        timer.stop();
        QCOMPARE(library.Count("PrcListControl.ImportList"), nCalls);
    }

    void aLongStallIsCountedBesideAShortCallInIt()
    {
        CGuardedLibrary library;
        library.guard.WatchLoop();
        library.control.During("ImportList", [] { Block(std::chrono::milliseconds(60)); });
        QTimer::singleShot(0, &library.guard, [] {
            g_pPrcListControl->ImportList("/a.kvtl");
            Block(std::chrono::milliseconds(300));
        });
        const auto isLong = [](const SGuiHold& hold) { return hold.bStall && hold.nMilliseconds >= 340; };
        QTRY_VERIFY(std::any_of(library.listHold.begin(), library.listHold.end(), isLong));
        QCOMPARE(library.Count("PrcListControl.ImportList"), 1);
    }

    void aDialogInAHandlerIsNoStall()
    {
        CStallWatch watch([] { });
        const QSignalSpy stalled(&watch, &CStallWatch::Stalled);
        qint64 nOpen = 0;
        QTimer::singleShot(0, &watch, [&] {
            const int nPings = watch.GetPings();
            QElapsedTimer open;
            open.start();
            QEventLoop dialog;
            QTimer steps;
            connect(&steps, &QTimer::timeout, &dialog, [&] {
                if (watch.GetPings() > nPings + 40) { // of ten milliseconds each
                    dialog.quit();
                }
            });
            steps.start(1);
            dialog.exec();
            nOpen = open.elapsed();
        });
        QTRY_VERIFY(nOpen > 0);
        QVERIFY(nOpen > CStallWatch::timeLimit.count());
        QVERIFY(std::none_of(stalled.begin(), stalled.end(),
                             [nOpen](const QVariantList& values) { return values[0].toLongLong() >= nOpen; }));
    }

    void aProgramThatWasStoppedHasNotStalled()
    {
        CStallWatch watch([] { });
        const QSignalSpy stalled(&watch, &CStallWatch::Stalled);
        QTimer timer;
        timer.start(0); // there is something to do before and after
        QTRY_VERIFY(watch.GetPings() > 2);
        QProcess waker;
        waker.start("/bin/sh", { "-c", QString("sleep 1; kill -CONT %1").arg(QCoreApplication::applicationPid()) });
        QVERIFY(waker.waitForStarted());
        QElapsedTimer stopped;
        stopped.start();
        raise(SIGSTOP);
        const qint64 nStopped = stopped.elapsed();
        const int nPings = watch.GetPings();
        QTRY_VERIFY(watch.GetPings() > nPings + 2);
        QTRY_COMPARE(waker.state(), QProcess::NotRunning);
        QVERIFY(nStopped > 500);
        QCOMPARE(
            std::count_if(stalled.begin(), stalled.end(), [](const QVariantList& values) { return values[0].toInt() > 500; }), 0);
    }

    void aProgramAtRestIsLeftAlone()
    {
        CStallWatch watch([] { });
        QTimer::singleShot(0, QCoreApplication::instance(), [] { });
        QTRY_VERIFY(watch.GetPings() > 0);
        const auto fnRests = [&watch] {
            const int nBefore = watch.GetPings();
            for (int n = 0; n < 20; ++n) {
                QCoreApplication::processEvents();
                Block(std::chrono::milliseconds(5));
            }
            return watch.GetPings() <= nBefore + 1;
        };
        QTRY_VERIFY(fnRests());
    }

    void theWatchEndsAtAnyMoment()
    {
        for (int n = 0; n < 200; ++n) {
            CStallWatch watch([] { });
            QCoreApplication::processEvents();
        }
        QCoreApplication::sendPostedEvents();
    }
};

PTV_TEST_MAIN_CORE(CGuardTest)
#include "tst_guard.moc"
