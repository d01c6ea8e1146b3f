#include "CRecording.h"
#include "TestMain.h"
#include "journal/CCallLog.h"
#include "journal/guard/CGuiGuard.h"
#include "journal/recording/CJournalRecorder.h"
#include "journal/recording/CRecordedCall.h"

#include <QSet>

#include <thread>

namespace {

constexpr int nThreads = 8;
constexpr int nRounds = 2000;

SJournalRecord Message()
{
    SJournalRecord record;
    record.line = LineMessage;
    record.szObject = "PrcListControl";
    record.vecField = { { "message", qint64(1) } };
    return record;
}

/// A recorder with all that stands before it and behind it.
class CRecorderChain
{
public:
    CRecorderChain()
    {
        log.SetRecorder(&guard);
    }

    /// Calls, messages and notes from eight threads at once; then all lines.
    QList<QJsonObject> Storm()
    {
        std::vector<std::thread> vecThread;
        for (int n = 0; n < nThreads; ++n) {
            vecThread.emplace_back([this] {
                for (int nRound = 0; nRound < nRounds; ++nRound) {
                    Round();
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        pWriter.reset();
        return recording.Read();
    }

private:
    static SRecordingLimits Limits()
    {
        SRecordingLimits limits;
        limits.nQueued = std::size_t(4) * nThreads * nRounds;
        limits.nFiles = 1000;
        return limits;
    }

    void Round()
    {
        {
            const CRecordedCall call(calls, RecordCommand, "MoveProcessor", QUuid());
        }
        guard.Write(Message());
        log.Write(RecordNote, "Devices", QStringLiteral("a step"));
    }

    CRecording recording;
    std::unique_ptr<CJournalWriter> pWriter = [this] {
        auto pMade = std::make_unique<CJournalWriter>(Limits());
        pMade->Open(recording.GetFolder(), {}, false);
        return pMade;
    }();
    CJournalRecorder recorder{ *pWriter };
    CGuiGuard guard{ recorder };
    CCallLog log{ 64 };
    const CCallWriter calls{ log, "PrcListControl" };
};

} // namespace

/// The recorder's numbers and causes under a storm.
class CRecorderStressTest : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreGivenOnceAndCausesComeBeforeTheirMessages()
    {
        CRecorderChain chain;
        const QList<QJsonObject> listLine = chain.Storm();
        QSet<qint64> setNumber;
        QSet<qint64> setCause;
        for (const QJsonObject& line : listLine) {
            if (line.contains("n")) {
                setNumber.insert(static_cast<qint64>(line.value("n").toDouble()));
            }
            const QJsonArray causes = line.value("cause").toArray();
            QVERIFY(causes.size() <= 16);
            for (const QJsonValue& cause : causes) {
                setCause.insert(static_cast<qint64>(cause.toDouble()));
            }
        }
        QCOMPARE(setNumber.size(), 3 * nThreads * nRounds);
        QVERIFY(!setCause.isEmpty() && setNumber.contains(setCause));
        QCOMPARE(CRecording::Pick(listLine, "lost").size(), 0);
    }
};

PTV_TEST_MAIN_CORE(CRecorderStressTest)
#include "tst_recorderstress.moc"
