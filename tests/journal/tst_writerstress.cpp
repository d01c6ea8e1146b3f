#include "CRecording.h"
#include "TestMain.h"

#include <atomic>
#include <thread>

namespace {

constexpr int nThreads = 8;
constexpr int nRecords = 5000;

/// Eight threads that push as fast as they can; text says which and how often.
void PushFromThreads(CJournalWriter& writer)
{
    std::vector<std::thread> vecThread;
    for (int nThread = 0; nThread < nThreads; ++nThread) {
        vecThread.emplace_back([&writer, nThread] {
            for (int n = 0; n < nRecords; ++n) {
                writer.Push(CRecording::Note(QStringLiteral("%1 %2").arg(nThread).arg(n)));
            }
        });
    }
    for (std::thread& thread : vecThread) {
        thread.join();
    }
}

int CountLost(const QList<QJsonObject>& listLine)
{
    int nLost = 0;
    for (const QJsonObject& line : CRecording::Pick(listLine, "lost")) {
        nLost += line.value("count").toInt();
    }
    return nLost;
}

} // namespace

/// The writer's queue and its end under a storm.
class CWriterStressTest : public QObject
{
    Q_OBJECT

private slots:
    void everyRecordIsWrittenInItsThreadsOrderOrCounted_data()
    {
        QTest::addColumn<int>("nQueued");
        QTest::newRow("a queue that takes all") << nThreads * nRecords;
        QTest::newRow("a queue that overflows") << 64;
    }

    void everyRecordIsWrittenInItsThreadsOrderOrCounted()
    {
        QFETCH(int, nQueued);
        const CRecording recording;
        SRecordingLimits limits;
        limits.nQueued = static_cast<std::size_t>(nQueued);
        limits.nFileBytes = 256 * 1024;
        limits.nFiles = 1000;
        {
            CJournalWriter writer(limits);
            writer.Open(recording.GetFolder(), {}, false);
            PushFromThreads(writer);
        }
        const QList<QJsonObject> listLine = recording.Read();
        std::vector<int> vecNext(nThreads, 0);
        for (const QJsonObject& line : CRecording::Pick(listLine, "note")) {
            const QStringList listText = line.value("text").toString().split(' ');
            int& nNext = vecNext[static_cast<size_t>(listText[0].toInt())];
            QVERIFY(listText[1].toInt() >= nNext);
            nNext = listText[1].toInt() + 1;
        }
        QCOMPARE(CRecording::Pick(listLine, "note").size() + CountLost(listLine), nThreads * nRecords);
        QCOMPARE(listLine.constLast().value("kind").toString(), QString("end"));
    }

    void twoWritersInOneFolderKeepToTheirOwnFiles()
    {
        const CRecording recording;
        SRecordingLimits limits;
        limits.nFileBytes = 1;
        limits.nFiles = 10000;
        constexpr int nLines = 100;
        const auto fnWrite = [&](const QString& strName) {
            CJournalWriter writer(limits);
            writer.Open(recording.GetFolder(), { { "who", strName } }, false);
            for (int n = 0; n < nLines; ++n) {
                writer.Push(CRecording::Note(strName));
            }
        };
        std::thread other([&fnWrite] { fnWrite("other"); });
        fnWrite("one");
        other.join();
        QString strWho;
        int nNotes = 0;
        for (const QJsonObject& line : recording.Read()) {
            strWho = line.contains("who") ? line.value("who").toString() : strWho;
            nNotes += line.value("kind").toString() == "note" ? 1 : 0;
            QVERIFY(line.value("kind").toString() != "note" || line.value("text").toString() == strWho);
        }
        QCOMPARE(nNotes, 2 * nLines);
    }

    void noEndHangsAndNothingPushedBeforeIsMissing()
    {
        for (int nRun = 0; nRun < 500; ++nRun) {
            const CRecording recording;
            {
                CJournalWriter writer;
                writer.Open(recording.GetFolder(), {}, false);
                std::thread([&writer] { writer.Push(CRecording::Note("the last")); }).join();
            }
            const QList<QJsonObject> listLine = recording.Read();
            QCOMPARE(listLine.size(), 3);
            QCOMPARE(listLine[1].value("text").toString(), QString("the last"));
        }
    }

    void aFlushReturnsWhileOthersPush()
    {
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), {}, false);
        std::atomic<bool> bEnd{ false };
        std::thread thread([&] {
            while (!bEnd) {
                writer.Push(CRecording::Note("rain"));
                std::this_thread::yield();
            }
        });
        bool bFlushed = true;
        for (int n = 0; n < 20; ++n) {
            bFlushed = bFlushed && writer.Flush(std::chrono::milliseconds(nPatience));
        }
        bEnd = true;
        thread.join();
        QVERIFY(bFlushed);
    }
};

PTV_TEST_MAIN_CORE(CWriterStressTest)
#include "tst_writerstress.moc"
