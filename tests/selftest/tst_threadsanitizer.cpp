#include "TestMain.h"

#include <QProcess>

namespace {

constexpr int nRuns = 3;
constexpr int nExitRace = 66;

void AddRows(const QStringList& listPattern)
{
    QTest::addColumn<QString>("strPattern");
    for (const QString& strPattern : listPattern) {
        QTest::newRow(qPrintable(strPattern)) << strPattern;
    }
}

/// Exit code of the program that runs one pattern; strOutput gets what it said.
int RunPattern(const QString& strPattern, QString& strOutput)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(RACE_PROBE), { strPattern });
    const bool bEnded = process.waitForFinished(3 * nPatience) && process.exitStatus() == QProcess::NormalExit;
    strOutput = QString::fromUtf8(process.readAll());
    return bEnded ? process.exitCode() : -1;
}

} // namespace

/// The thread sanitizer with stock Qt reports what is a race, and only that.
class CThreadSanitizerTest : public QObject
{
    Q_OBJECT

private slots:
    void plantedRaceIsReported_data()
    {
        AddRows({ "raceWithoutLock", "raceWriteUnderReadLock", "raceAfterRecursiveUnlock", "raceTwoMutexes", "raceWithPoolJob",
                  "raceWithThreadBeforeWait", "raceBehindSteadyWait", "raceOnGrowingList", "raceOnShrinkingList", "raceOnString",
                  "raceOnMap" });
    }

    void plantedRaceIsReported()
    {
        QFETCH(QString, strPattern);
        QString strOutput;
        QVERIFY2(RunPattern(strPattern, strOutput) == nExitRace, qPrintable(strOutput));
        QVERIFY2(strOutput.contains(QLatin1String("WARNING: ThreadSanitizer: data race")), qPrintable(strOutput));
    }

    void correctPatternIsSilent_data()
    {
        AddRows({ "cleanReadWriteLock", "cleanReaders", "cleanMutex", "cleanWaitCondition", "cleanSteadyWait", "cleanSemaphore",
                  "cleanQueuedSignal", "cleanQueuedRecord", "cleanInvokedMethods", "cleanPoolJob", "cleanThreadAfterWait",
                  "cleanWorkerThatDeletesItself", "cleanList", "cleanSharedList", "cleanThreadStorage",
                  "cleanDestructorsAfterFinished", "cleanQueuedFinished", "cleanThreadThatDeletesItself" });
    }

    void correctPatternIsSilent()
    {
        QFETCH(QString, strPattern);
        for (int i = 0; i < nRuns; ++i) {
            QString strOutput;
            QVERIFY2(RunPattern(strPattern, strOutput) == 0, qPrintable(strOutput));
            QCOMPARE(strOutput, QString());
        }
    }
};

PTV_TEST_MAIN_CORE(CThreadSanitizerTest)
#include "tst_threadsanitizer.moc"
