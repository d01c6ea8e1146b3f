#include "Builders.h"
#include "CBackwardClock.h"
#include "CControlFixture.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"

#include <QElapsedTimer>

#include <chrono>
#include <thread>

using namespace std::chrono_literals;

namespace {

qint64 ReadWallClock()
{
    const auto timeNow = std::chrono::system_clock::now(); // wall clock: the one that is set back
    return std::chrono::duration_cast<std::chrono::seconds>(timeNow.time_since_epoch()).count();
}

} // namespace

/// Nothing in the library waits or measures by a clock that can be set back.
class CClockTest : public QObject
{
    Q_OBJECT

private slots:
    void theTestsClockRunsBackwards()
    {
        const CBackwardClock clock;
        const qint64 nBefore = ReadWallClock();
        QVERIFY(ReadWallClock() <= nBefore - 3599);
        QVERIFY(QDateTime::currentSecsSinceEpoch() < nBefore - 3600);
    }

    void messagesComeThoughTheClockIsSetBackWhileTheyWait()
    {
        CControlFixture fixture;
        fixture.Start(Root({}, { Processor("alpha") }));
        const CBackwardClock clock;
        g_pRuntimeControl->PostMessage(14);
        QVERIFY(fixture.recorder.Await(14));
        QVERIFY(fixture.recorder.Await(59));
    }

    void aScanEndsThoughTheClockIsSetBack()
    {
        CControlFixture fixture;
        fixture.Start();
        const CBackwardClock clock;
        std::thread scan([] { g_pPrcBasicControl->RefreshProcessors(); });
        const bool bEnded = QTest::qWaitFor([&] { return fixture.pHost->GetRunningJobs().isEmpty(); });
        fixture.pHost->GetRunningJobs().isEmpty() ? scan.join() : scan.detach();
        QVERIFY(bEnded);
    }

    void theDayGoesOnThoughTheClockIsSetBack()
    {
        CControlFixture fixture;
        fixture.Write("day.json", R"({"steps": [{"at": 0.2, "do": "add-group", "name": "Hall"}]})");
        fixture.options.strScenarioFile = fixture.GetPath("day.json");
        fixture.Start();
        const CBackwardClock clock;
        fixture.pHost->StartLife();
        QTRY_COMPARE(CControlFixture::GetTree().listGroup.size(), 1);
        QVERIFY(fixture.pHost->GetLifeTime() >= 200);
    }

    void jobsStayInTheOrderInWhichTheyBegan()
    {
        CJobs jobs;
        const CBackwardClock clock;
        const int nFirst = jobs.Begin("first");
        const int nSecond = jobs.Begin("second");
        QCOMPARE(jobs.GetRunning(), (QStringList{ "first", "second" }));
        QVERIFY(jobs.GetProgress().last().timeSince < jobs.GetProgress().first().timeSince);
        jobs.End(nFirst);
        QCOMPARE(jobs.GetRunning(), QStringList{ "second" });
        jobs.End(nSecond);
    }

    void theEndWaitsForADeadJobNoLongerForIt()
    {
        CHostEvents events;
        CJobs jobs;
        jobs.SetBusy(true);
        const CBackwardClock clock;
        QElapsedTimer timer;
        timer.start();
        jobs.AwaitIdle(20ms);
        QVERIFY(timer.elapsed() >= 20);
    }
};

PTV_TEST_MAIN_CORE(CClockTest)
#include "tst_clock.moc"
