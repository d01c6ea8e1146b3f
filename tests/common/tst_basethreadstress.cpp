#include "CRecordingThread.h"
#include "TestMain.h"

/// Thousands of loops that are stopped about when they go to sleep.
class CBaseThreadStressTest : public QObject
{
    Q_OBJECT

private slots:
    void noStopEverHangs()
    {
        QCOMPARE(FirstHangingStop(4000), -1);
    }
};

PTV_TEST_MAIN_CORE(CBaseThreadStressTest)
#include "tst_basethreadstress.moc"
