#include "CHandClock.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"
#include "live/CDeviceBurst.h"
#include "live/CFullLibrary.h"
#include "live/CLivePanel.h"

#include <QDeadlineTimer>

#include <thread>

using namespace std::chrono_literals;

namespace {

/// Milliseconds from an event to the message that makes the panel read, at most, when no other follows.
constexpr int nSoon = (CMessageDispatcher::timeQuiet + CMessageDispatcher::timeGap).count();

/// The panel over a full library by a clock of the test's.
class CClockedPanel
{
public:
    CClockedPanel()
    {
        panel.watch.SetClock([this] { return clock.GetNow(); });
        StepToTheEnd();
        panel.watch.Clear();
    }

    /// Lets a millisecond pass and the panel do what comes of it.
    void Step()
    {
        const int nWaits = clock.Turn(1ms);
        const auto isDone = [&] { return clock.GetWaits() > nWaits || panel.watch.HasCome(MessageSettled); };
        const QDeadlineTimer deadline(nPatience);
        while (!(isDone() && panel.watch.GetQueued() == 0) && !deadline.hasExpired()) {
            clock.AwaitWait(clock.GetWaits(), 1ms); // a wait that spins takes the core from what it waits for
        }
        QVERIFY(!deadline.hasExpired());
        QCoreApplication::processEvents();
    }

    /// As Step, until the end of the burst has come.
    void StepToTheEnd()
    {
        while (!panel.watch.HasCome(MessageSettled) && !QTest::currentTestFailed()) {
            Step();
        }
    }

    CHandClock clock;
    CFullLibrary library{ {}, clock };
    CLivePanel panel;
};

} // namespace

/// The real panel over the real library, in bursts of events.
class CPanelBurstsTest : public QObject
{
    Q_OBJECT

private slots:
    void aSecondOfTenThousandEventsEndsInTheTruth_data()
    {
        QTest::addColumn<bool>("bMixed");
        QTest::newRow("devices") << false;
        QTest::newRow("all kinds") << true;
    }

    void aSecondOfTenThousandEventsEndsInTheTruth()
    {
        QFETCH(bool, bMixed);
        CClockedPanel clocked;
        for (int nRound = 0; nRound < 20; ++nRound) {
            CDeviceBurst(*clocked.library, bMixed, 500, 0ms, 500 * nRound).Join();
            for (int n = 0; n < 50; ++n) {
                clocked.Step();
            }
        }
        QVERIFY(clocked.panel.watch.GetCount() >= 1000ms / CMessageDispatcher::timeLongest);
        clocked.StepToTheEnd();
        QVERIFY(clocked.panel.watch.GetLongestQueue() <= 3);
        QVERIFY(clocked.panel.watch.GetMostInASecond() <= 50);
        QTRY_VERIFY(clocked.panel.ShowsLibrary());
    }

    void theTruthIsReadSoonAfterTheLastEvent()
    {
        CClockedPanel clocked;
        for (int nRound = 0; nRound < 20; ++nRound) {
            CDeviceBurst(*clocked.library, true, 500, 0ms, 500 * nRound).Join();
            for (int n = 0; n < nSoon; ++n) {
                clocked.Step();
            }
            QTRY_VERIFY(clocked.panel.ShowsLibrary());
        }
    }
};

PTV_TEST_MAIN(CPanelBurstsTest)
#include "tst_panelbursts.moc"
