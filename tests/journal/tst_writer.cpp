#include "CRecording.h"
#include "TestMain.h"

#include <QDir>
#include <QElapsedTimer>

#include <sys/resource.h>

namespace {

const std::vector<SJournalField> vecHeader{ { "version", QStringLiteral("1.2") } };

QStringList Kinds(const QList<QJsonObject>& listLine)
{
    QStringList listKind;
    for (const QJsonObject& line : listLine) {
        listKind.append(line.value("kind").toString());
    }
    return listKind;
}

/// For as long as it lives no file of this process takes more than that. The signal for it ends this process.
class CFullDisk
{
public:
    explicit CFullDisk(rlim_t nBytes)
    {
        getrlimit(RLIMIT_FSIZE, &former);
        const rlimit limit{ nBytes, former.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~CFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &former);
    }
    Q_DISABLE_COPY(CFullDisk)

private:
    rlimit former{};
};

} // namespace

/// The thread that writes a recording.
class CWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void theHeaderIsFirstAndTheEndIsLast()
    {
        const CRecording recording;
        {
            CJournalWriter writer;
            writer.Push(CRecording::Note("before it is opened"));
            writer.Open(recording.GetFolder(), vecHeader, false);
            writer.Push(CRecording::Note("after"));
        }
        const QList<QJsonObject> listLine = recording.Read();
        QCOMPARE(Kinds(listLine), (QStringList{ "header", "note", "note", "end" }));
        QCOMPARE(listLine[0].value("version").toString(), QString("1.2"));
        QCOMPARE(listLine[0].value("file").toInt(), 1);
        QCOMPARE(listLine[1].value("text").toString(), QString("before it is opened"));
        QCOMPARE(listLine[2].value("text").toString(), QString("after"));
    }

    void linesAreThereWhileThisThreadDoesNothing()
    {
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), vecHeader, false);
        writer.Push(CRecording::Note("one"));
        QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience))); // blocks, without an event loop
        QCOMPARE(Kinds(recording.Read()), (QStringList{ "header", "note" }));
    }

    void everyFileHasItsHeaderAndItsNumber()
    {
        const CRecording recording;
        SRecordingLimits limits;
        limits.nFileBytes = 1;
        {
            CJournalWriter writer(limits);
            writer.Open(recording.GetFolder(), vecHeader, false);
            writer.Push(CRecording::Note("one"));
        }
        const QList<QJsonObject> listLine = recording.Read();
        const QList<QJsonObject> listHeader = CRecording::Pick(listLine, "header");
        QVERIFY(listHeader.size() >= 2);
        QCOMPARE(listHeader[1].value("file").toInt(), 2);
    }

    void whatAFullQueueDropsIsCountedAndSaid()
    {
        const CRecording recording;
        SRecordingLimits limits;
        limits.nQueued = 8;
        CJournalWriter writer(limits);
        for (int n = 0; n < 10; ++n) {
            writer.Push(CRecording::ReadingCall());
        }
        for (int n = 0; n < 10; ++n) {
            writer.Push(CRecording::Note("note"));
        }
        QCOMPARE(writer.GetLost(), quint64(12));
        writer.Open(recording.GetFolder(), vecHeader, false);

        const QList<QJsonObject> listLine = recording.Read(writer);

        QCOMPARE(CRecording::Pick(listLine, "call").size(), 6);
        QCOMPARE(CRecording::Pick(listLine, "note").size(), 2);
        const QList<QJsonObject> listLost = CRecording::Pick(listLine, "lost");
        QCOMPARE(listLost.size(), 1);
        QCOMPARE(listLost[0].value("count").toInt(), 12);
        QCOMPARE(listLost[0].value("reads").toInt(), 4);
        QCOMPARE(listLost[0].value("others").toInt(), 8);
        QCOMPARE(listLost[0].value("refused").toInt(), 0);
    }

    void whatAFullDiskRefusesIsCountedAndSaid()
    {
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), vecHeader, false);
        writer.Push(CRecording::Note("one"));
        QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience)));
        const qint64 nSize = QFileInfo(recording.GetFolder() + "/000001.jsonl").size();
        {
            const CFullDisk disk(static_cast<rlim_t>(nSize) + 10);
            writer.Push(CRecording::Note("two"));
            QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience)));
            QVERIFY2(writer.GetError().contains("File too large"), qPrintable(writer.GetError()));
        }
        writer.Push(CRecording::Note("three"));

        const QList<QJsonObject> listLine = recording.Read(writer);

        QCOMPARE(Kinds(listLine), (QStringList{ "header", "note", "lost", "note" }));
        QCOMPARE(listLine[2].value("refused").toInt(), 1);
        QVERIFY(listLine[2].value("reason").toString().contains("File too large"));
        QCOMPARE(listLine[3].value("text").toString(), QString("three"));
        QCOMPARE(writer.GetError(), QString());
    }

    void aFolderThatComesLateGetsTheRest()
    {
        const CRecording recording;
        QFile file(recording.GetFolder());
        QVERIFY(file.open(QIODevice::WriteOnly));
        CJournalWriter writer;
        QStringList listTrouble;
        writer.SetTrouble([&listTrouble](const QString& strReason) { listTrouble.append(strReason); });
        writer.Open(recording.GetFolder(), vecHeader, false);
        writer.Push(CRecording::Note("one"));
        QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience)));
        QVERIFY(writer.GetError().contains(recording.GetFolder()));
        writer.Push(CRecording::Note("one more"));
        QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience)));
        QVERIFY(file.remove());
        writer.Push(CRecording::Note("two"));

        QCOMPARE(Kinds(recording.Read(writer)), (QStringList{ "header", "lost", "note" }));
        QCOMPARE(listTrouble.size(), 2); // once each way
        QVERIFY(listTrouble[0].contains(recording.GetFolder()) && listTrouble[1].isEmpty());
    }

    void aDiskThatFillsInTheMiddleLeavesWholeLines()
    {
        const CRecording recording;
        SRecordingLimits limits;
        limits.nFileBytes = 2000;
        constexpr int nNotes = 200;
        {
            CJournalWriter writer(limits);
            writer.Open(recording.GetFolder(), vecHeader, false);
            const CFullDisk disk(1003); // no file gets as far as its end
            for (int n = 0; n < nNotes; ++n) {
                writer.Push(CRecording::Note(QString::number(n)));
            }
            QVERIFY(writer.Flush(std::chrono::milliseconds(nPatience)));
            QVERIFY(writer.GetLost() > 0);
        }
        const QList<QJsonObject> listLine = recording.Read();
        QVERIFY(!listLine.contains(QJsonObject()));
        const QList<QJsonObject> listLost = CRecording::Pick(listLine, "lost");
        QCOMPARE(listLost.size(), 1);
        QCOMPARE(CRecording::Pick(listLine, "note").size() + listLost[0].value("refused").toInt(), nNotes);
        QCOMPARE(listLine.constLast().value("kind").toString(), QString("end"));
    }

    void everyFileBeginsWithTheLastState()
    {
        const CRecording recording;
        SRecordingLimits limits;
        limits.nFileBytes = 1;
        {
            CJournalWriter writer(limits);
            writer.Open(recording.GetFolder(), vecHeader, false);
            SJournalRecord record;
            record.line = LineUser;
            record.bState = true;
            record.vecField = { { "pane", qint64(1) } };
            writer.Push(std::move(record));
            writer.Push(CRecording::Note("one"));
        }
        const QList<QJsonObject> listHeader = CRecording::Pick(recording.Read(), "header");
        QVERIFY(listHeader.size() >= 2);
        QCOMPARE(listHeader.constLast().value("screen").toObject().value("pane").toInt(), 1);
    }

    void everyTextIsOneLine_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::newRow("newlines") << "a\r\nb";
        QTest::newRow("control characters") << QString("a\x01\x1f\x7f") + QChar(0) + 'b';
        QTest::newRow("half a character") << QString("a") + QChar(0xD800) + 'b';
        QTest::newRow("quotes") << R"("\")";
        QTest::newRow("a line separator") << QString(QChar(0x2028));
    }

    void everyTextIsOneLine()
    {
        QFETCH(QString, strText);
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), vecHeader, false);
        writer.Push(CRecording::Note(strText));
        const QList<QJsonObject> listLine = recording.Read(writer);
        QCOMPARE(Kinds(listLine), (QStringList{ "header", "note" }));
        QCOMPARE(listLine[1].value("text").toString(), strText);
    }

    void aTreeIsWholeAgainAfterALineWasRefused()
    {
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), vecHeader, false);
        const auto fnRead = [&writer] {
            SJournalRecord record = CRecording::ReadingCall();
            record.result = SProcessorAllNode();
            writer.Push(std::move(record));
            return writer.Flush(std::chrono::milliseconds(nPatience));
        };
        QVERIFY(fnRead() && fnRead());
        {
            const CFullDisk disk(static_cast<rlim_t>(QFileInfo(recording.GetFolder() + "/000001.jsonl").size()));
            QVERIFY(fnRead());
        }
        QVERIFY(fnRead());

        const QList<QJsonObject> listCall = CRecording::Pick(recording.Read(writer), "call");
        QCOMPARE(listCall.size(), 3);
        QVERIFY(listCall[0].value("result").toObject().contains("whole"));
        QVERIFY(listCall[1].value("result").toObject().contains("same"));
        QVERIFY(listCall[2].value("result").toObject().contains("whole"));
    }
};

PTV_TEST_MAIN_CORE(CWriterTest)
#include "tst_writer.moc"
