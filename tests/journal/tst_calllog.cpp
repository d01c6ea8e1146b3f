#include "TestMain.h"
#include "journal/CCallLog.h"
#include "journal/CCallWriter.h"

#include <atomic>
#include <thread>

namespace {

QStringList Texts(const std::vector<SCallRecord>& vecRecord)
{
    QStringList listText;
    for (const SCallRecord& record : vecRecord) {
        listText.append(record.strText);
    }
    return listText;
}

} // namespace

class CCallLogTest : public QObject
{
    Q_OBJECT

private slots:
    void recordsComeInTheOrderOfWriting()
    {
        CCallLog log(8);
        log.Write(RecordCommand, "A", "one");
        log.Write(RecordRead, "B", "two");
        const std::vector<SCallRecord> vecRecord = log.ReadAfter(0);
        QCOMPARE(Texts(vecRecord), (QStringList{ "one", "two" }));
        QCOMPARE(vecRecord[0].nNumber, quint64(1));
        QCOMPARE(vecRecord[1].kind, RecordRead);
        QVERIFY(vecRecord[0].nTime <= vecRecord[1].nTime);
        QCOMPARE(Texts(log.ReadAfter(1)), QStringList{ "two" });
        QVERIFY(log.ReadAfter(2).empty());
    }

    void theNewestAreKeptWhenItIsFull()
    {
        CCallLog log(3);
        for (const char* szText : { "one", "two", "three", "four", "five" }) {
            log.Write(RecordCommand, "A", szText);
        }
        QCOMPARE(Texts(log.ReadAfter(0)), (QStringList{ "three", "four", "five" }));
        QCOMPARE(Texts(log.ReadAfter(4)), QStringList{ "five" });
        QCOMPARE(log.GetLastNumber(), quint64(5));
    }

    void aReaderIsToldOnceUntilItReads()
    {
        CCallLog log(8);
        QSignalSpy spy(&log, &CCallLog::RecordsWaiting);
        log.Write(RecordCommand, "A", "one");
        log.Write(RecordCommand, "A", "two");
        QCOMPARE(spy.count(), 1);
        log.ReadAfter(0);
        log.Write(RecordCommand, "A", "three");
        QCOMPARE(spy.count(), 2);
    }

    void everyThreadHasItsNumberAndTheFirstIsNought()
    {
        CCallLog log(8);
        log.Write(RecordCommand, "A", "here");
        std::thread([&] {
            log.Write(RecordCommand, "A", "there");
            log.Write(RecordCommand, "A", "there again");
        }).join();
        const std::vector<SCallRecord> vecRecord = log.ReadAfter(0);
        QCOMPARE(vecRecord[0].nThread, 0);
        QVERIFY(vecRecord[1].nThread != 0);
        QCOMPARE(vecRecord[2].nThread, vecRecord[1].nThread);
    }

    void linesOfManyThreadsAreNumberedWithoutGaps()
    {
        constexpr int nThreads = 4;
        constexpr int nLines = 5000;
        CCallLog log(64);
        std::atomic<int> nRunning{ nThreads };
        std::vector<std::thread> vecThread;
        for (int n = 0; n < nThreads; ++n) {
            vecThread.emplace_back([&] {
                for (int i = 0; i < nLines; ++i) {
                    log.Write(RecordMessage, "A", "message");
                }
                --nRunning;
            });
        }
        quint64 nLast = 0;
        while (nRunning > 0) {
            for (const SCallRecord& record : log.ReadAfter(nLast)) {
                QVERIFY(record.nNumber > nLast);
                nLast = record.nNumber;
            }
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        QCOMPARE(log.GetLastNumber(), quint64(nThreads * nLines));
        QCOMPARE(log.ReadAfter(0).size(), size_t(64));
    }

    void argumentsAreShort_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<QString>("strExpected");

        const QUuid id("{1c0ffee0-0000-0000-0000-000000000001}");
        QTest::newRow("id") << CCallWriter::GetText(id) << "1c0ffee0";
        QTest::newRow("null id") << CCallWriter::GetText(QUuid()) << "null";
        QTest::newRow("true") << CCallWriter::GetText(true) << "true";
        QTest::newRow("number") << CCallWriter::GetText(-7) << "-7";
        QTest::newRow("text") << CCallWriter::GetText(QString("a b")) << "\"a b\"";
        QTest::newRow("no ids") << CCallWriter::GetText(std::vector<QUuid>()) << "[]";
        QTest::newRow("three ids") << CCallWriter::GetText(std::vector<QUuid>(3, id)) << "[1c0ffee0, 1c0ffee0, 1c0ffee0]";
        QTest::newRow("many ids") << CCallWriter::GetText(std::vector<QUuid>(512, id))
                                  << "[1c0ffee0, 1c0ffee0, 1c0ffee0, 509 more]";
        QTest::newRow("long text") << CCallWriter::GetText(QString(100, 'x')) << '"' + QString(80, 'x') + QChar(0x2026) + '"';
    }

    void argumentsAreShort()
    {
        QFETCH(QString, strText);
        QFETCH(QString, strExpected);
        QCOMPARE(strText, strExpected);
    }
};

PTV_TEST_MAIN_CORE(CCallLogTest)
#include "tst_calllog.moc"
