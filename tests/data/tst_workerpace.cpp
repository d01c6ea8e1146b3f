#include "CWorkerRig.h"
#include "TestMain.h"
#include "double/CControlDouble.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto timePause = 10ms;
constexpr int nTries = 100;

/// Notes when message 59 is served, on the worker's thread.
class CServiceClock
{
public:
    explicit CServiceClock(const CWorkerRig& rig)
    {
        const auto fnNote = [this] { vecTime.push_back(Clock::now()); };
        QObject::connect(rig.pWorker, &CProcessorTreeThread::UpdateToolBar, &context, fnNote, Qt::DirectConnection);
    }

    /// The shortest time between two messages; the worker has ended.
    Clock::duration Shortest() const
    {
        Clock::duration timeShortest = Clock::duration::max();
        for (size_t i = 1; i < vecTime.size(); ++i) {
            timeShortest = std::min(timeShortest, vecTime[i] - vecTime[i - 1]);
        }
        return timeShortest;
    }

private:
    QObject context;
    std::vector<Clock::time_point> vecTime;
};

/// Serves one message that finds the loop without work. A wake-up that falls into the gap before the sleep is
/// repeated.
bool Serve(CWorkerRig& rig)
{
    if (!rig.WaitForIdle()) {
        return false;
    }
    rig.pWorker->Notify(59);
    return QTest::qWaitFor([&] { return rig.WaitForToolBar(100) || (rig.Probe().Activate(), false); }, nPatience);
}

} // namespace

/// The pause lies between two messages that wait together, nowhere else. Of many tries the shortest counts: only a
/// pause that is there each time makes that one long, whatever else the machine has to do.
class CWorkerPaceTest : public QObject
{
    Q_OBJECT

private slots:
    void noPauseFollowsTheLastMessage()
    {
        const CControlDouble control;
        CWorkerRig rig;
        const CServiceClock clock(rig);
        rig.Start();
        for (int i = 0; i < nTries; ++i) {
            QVERIFY(Serve(rig));
        }
        QVERIFY(rig.Stop());
        QVERIFY(clock.Shortest() < timePause);
    }

    void thePauseBetweenTwoMessagesIsNoLongerThanItMustBe()
    {
        const CControlDouble control;
        CWorkerRig rig;
        const CServiceClock clock(rig);
        for (int i = 0; i < nTries / 2; ++i) {
            rig.pWorker->Notify(59);
        }
        rig.Start();
        QVERIFY(rig.WaitForIdle());
        QVERIFY(rig.Stop());
        QVERIFY(clock.Shortest() >= timePause);
        QVERIFY(clock.Shortest() < 2 * timePause);
    }
};

PTV_TEST_MAIN_CORE(CWorkerPaceTest)

#include "tst_workerpace.moc"
