#include "CWaitGap.h"
#include "CWorkerRig.h"
#include "TestMain.h"
#include "double/CControlDouble.h"

namespace {

constexpr int nGaps = 60;

/// Long enough for a loop that is awake to end.
constexpr unsigned long nShortMs = 10;

/// Returns when the loop that was in the gap is asleep: it gives the mutex back in the wait only.
void WaitForSleep(const CWorkerRig& rig)
{
    const std::lock_guard<std::mutex> lock(rig.Probe().WakeMutex());
}

/// Asks for a stop while the loop of a worker is in the gap; then the loop goes to sleep. Returns whether it ends within
/// nTimeout nevertheless. The worker has ended when this returns.
bool EndsAfterGap(void (CWorkerRig::*fnStop)(), unsigned long nTimeout)
{
    CWorkerRig rig;
    CWaitGap gap(rig.Probe().WakeCondition());
    rig.Start();
    if (!gap.WaitForLoop()) {
        qFatal("the loop does not go to sleep");
    }
    (rig.*fnStop)();
    gap.Close();
    const bool bEnded = rig.thread.wait(nTimeout);
    if (!bEnded) {
        WaitForSleep(rig);
        rig.Probe().Activate();
    }
    return rig.Stop() && bEnded;
}

} // namespace

/// A stop that falls between the loop's last look at its flags and its sleep.
class CWorkerStopTest : public QObject
{
    Q_OBJECT

private slots:
    void aStopInTheGapEndsTheLoop()
    {
        const CControlDouble control;
        for (int i = 0; i < nGaps; ++i) {
            QVERIFY2(EndsAfterGap(&CWorkerRig::RequestStop, nPatience), qPrintable(QString::number(i)));
        }
    }

    void aSingleWakeUpInTheGapIsLost()
    {
        const CControlDouble control;
        int nLost = 0;
        for (int i = 0; i < nGaps; ++i) {
            nLost += EndsAfterGap(&CWorkerRig::RequestStopWithOneWakeUp, nShortMs) ? 0 : 1;
        }
        QCOMPARE(nLost, nGaps);
    }
};

PTV_TEST_MAIN_CORE(CWorkerStopTest)

#include "tst_workerstop.moc"
