#include "Builders.h"
#include "CorvidControl/file/ListFormat.h"
#include "Replays.h"
#include "SessionSteps.h"
#include "TestMain.h"

#include <atomic>
#include <thread>

namespace {

/// Threads that take the processors while they live.
class CLoad
{
public:
    CLoad()
    {
        for (std::thread& thread : threads) {
            thread = std::thread([this] {
                while (!bEnd) {
                    ++nTurns;
                }
            });
        }
    }

    ~CLoad()
    {
        bEnd = true;
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    Q_DISABLE_COPY(CLoad)

private:
    std::atomic<bool> bEnd{ false };
    std::atomic<quint64> nTurns{ 0 };
    std::thread threads[3];
};

} // namespace

/// The same recording, and others, again and again on a machine that is busy.
class CReplayStormTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFile file(folder.filePath("in.kvtl"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ListFormat::Write(Root({ Group("Attic", { Processor("imported").Ip("10.0.0.9") }) })));
        vecStep = SessionSteps::All(file.fileName());
    }

    void runsWithoutTheirFirstFilesHaveNoDifference()
    {
        for (int nRecording = 0; nRecording < 3; ++nRecording) {
            QCOMPARE(Replays::FindFault([this] { return PlayWithoutFirstFiles(); }), QString());
        }
    }

    void fiftyReplaysUnderLoadHaveNoDifference()
    {
        for (int nRecording = 0; nRecording < 5; ++nRecording) {
            QCOMPARE(Replays::FindFault([this] { return PlayTenTimes(); }), QString());
        }
    }

private:
    QString PlayWithoutFirstFiles() const
    {
        const CRecordedSession recorded({ vecStep, SessionSteps::Storm(), false, 8192 });
        const CLoad load;
        return Replays::PlayWithoutFirstFiles(recorded, vecStep);
    }

    QString PlayTenTimes() const
    {
        const CRecordedSession recorded({ vecStep, SessionSteps::Storm() });
        const CLoad load;
        const CRecordedRun run = Replays::Read(recorded);
        QString strFault;
        for (int n = 0; n < 10 && strFault.isEmpty(); ++n) {
            strFault = Replays::Play(run, vecStep, recorded);
        }
        return strFault;
    }

    QTemporaryDir folder;
    std::vector<SSessionStep> vecStep;
};

PTV_TEST_MAIN(CReplayStormTest)
#include "tst_replaystorm.moc"
