#include "CRecording.h"
#include "TestMain.h"
#include "journal/replay/CRecordedRun.h"
#include "nodes/SProcessorAllNode.h"

#include <QRandomGenerator>

#include <limits>

namespace {

const QByteArray header = R"({"kind":"header","format":1,"run":"a","file":1})";
const QByteArray call
    = R"({"kind":"call","n":%,"t":5,"thread":"gui","object":"PrcListControl","operation":"GetSimulatorCount","args":[],"result":2})";
const QByteArray wholeTree
    = R"({"kind":"call","n":%,"t":5,"thread":"worker-2","object":"PrcListControl","operation":"GetDiscoveredTree","args":[],)"
      R"("result":{"whole":{"name":"All","groups":[{"name":"Stage","id":"dec0de00-0000-0000-0000-000000000002"}]}}})";
const QByteArray changedTree
    = R"({"kind":"call","n":%,"t":5,"thread":"worker-2","object":"PrcListControl","operation":"GetDiscoveredTree","args":[],)"
      R"("result":{"change":{"groups":{"set":[[0,{"name":"Hall"}]]}}}})";
const QByteArray sameTree
    = R"({"kind":"call","n":%,"t":5,"thread":"worker-2","object":"PrcListControl","operation":"GetDiscoveredTree","args":[],)"
      R"("result":{"same":true}})";
const QByteArray lastRead
    = R"({"kind":"call","n":%,"t":5,"thread":"worker-2","object":"PrcListControl","operation":"IsSimulatorPane","args":[],)"
      R"("result":false})";
const QByteArray end = R"({"kind":"end","t":9})";

QByteArray Numbered(QByteArray line, int nNumber)
{
    return line.replace('%', QByteArray::number(nNumber));
}

QByteArray User(const QByteArray& operation, const QByteArray& window, const QByteArray& target)
{
    return R"({"kind":"user","n":%,"t":5,"thread":"gui","object":"User","operation":")" + operation + R"(","window":")" + window
        + R"(","target":")" + target + R"("})";
}

QByteArray Header(const QByteArray& run, int nFile)
{
    return R"({"kind":"header","format":1,"run":")" + run + R"(","file":)" + QByteArray::number(nFile) + '}';
}

/// A folder of journal files, and what is read of it.
class CReading
{
public:
    void Write(int nFile, const QList<QByteArray>& listLine, const QByteArray& rest = {})
    {
        QFile file(GetPath(nFile));
        file.open(QIODevice::WriteOnly);
        for (const QByteArray& line : listLine) {
            file.write(line + '\n');
        }
        file.write(rest);
    }

    QString GetPath(int nFile) const
    {
        return folder.filePath(QStringLiteral("%1.jsonl").arg(nFile, 6, 10, QLatin1Char('0')));
    }

    bool Read(const QString& strRun = {})
    {
        return run.Read(folder.path(), strError, strRun);
    }

    QTemporaryDir folder;
    CRecordedRun run;
    QString strError;
};

QStringList Numbers(const CRecordedRun& run)
{
    QStringList listNumber;
    for (const SRecordedLine& line : run.GetLines()) {
        listNumber.append(QString::number(line.nNumber));
    }
    return listNumber;
}

} // namespace

/// Runs read from their files, whole and damaged.
class CRecordedRunTest : public QObject
{
    Q_OBJECT

private slots:
    void linesStandByTheirNumbers()
    {
        CReading reading;
        reading.Write(1, { header, Numbered(call, 2), Numbered(call, 1), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList({ "1", "2" }));
        QVERIFY(reading.run.IsWhole() && reading.run.HasBeginning() && reading.run.HasEnd());
    }

    void treesAreWhole()
    {
        CReading reading;
        reading.Write(1, { header, Numbered(wholeTree, 1), Numbered(changedTree, 2), Numbered(sameTree, 3), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(reading.run.GetLines()[0].pTree->listGroup[0].strName, QString("Stage"));
        QCOMPARE(reading.run.GetLines()[1].pTree->listGroup[0].strName, QString("Hall"));
        QCOMPARE(reading.run.GetLines()[2].pTree, reading.run.GetLines()[1].pTree);
    }

    void filesOfOneRunAreJoined()
    {
        CReading reading;
        reading.Write(1, { Header("old", 1), Numbered(call, 7) });
        reading.Write(2, { Header("new", 1), Numbered(call, 1) });
        reading.Write(3, { Header("new", 2), Numbered(call, 2), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList({ "1", "2" }));
        QVERIFY(reading.Read("old"));
        QCOMPARE(Numbers(reading.run), QStringList({ "7" }));
        QVERIFY(reading.run.Read(reading.GetPath(2), reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList({ "1", "2" }));
    }

    void aCallThatNeverCameBackKeepsItsBeginning()
    {
        QByteArray begin = Numbered(call, 1);
        begin.replace(R"("kind":"call")", R"("kind":"begin")");
        QByteArray other = begin;
        other.replace(R"("n":1)", R"("n":2)");
        CReading reading;
        reading.Write(1, { header, begin, other, Numbered(call, 1), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(reading.run.GetLines()[0].strKind, QString("call"));
        QCOMPARE(reading.run.GetLines()[1].strKind, QString("begin"));
    }

    void aRunWithoutItsBeginningSaysSo()
    {
        CReading reading;
        reading.Write(4, { Header("a", 4), Numbered(call, 40) });
        QVERIFY(reading.Read());
        QVERIFY(!reading.run.HasBeginning() && !reading.run.IsWhole());
        QCOMPARE(reading.run.GetReason(), QString("The first files of the run are gone."));
    }

    void withoutItsBeginningARunStartsBehindARefresh_data()
    {
        QTest::addColumn<QList<QByteArray>>("listLine");
        QTest::addColumn<int>("nStart");
        const QByteArray press = User("press", "CMainWindow[0]", "CMainWindow[0]/Tree[0]");
        const QList<QByteArray> listRefresh{ wholeTree, lastRead };
        QTest::newRow("no refresh") << QList<QByteArray>{ call, press } << 0;
        QTest::newRow("one") << QList<QByteArray>{ call } + listRefresh + QList<QByteArray>{ press } << 4;
        QTest::newRow("its first read is gone") << QList<QByteArray>{ lastRead } + listRefresh << 4;
        QTest::newRow("a step in it") << QList<QByteArray>{ wholeTree, press, lastRead } + listRefresh << 6;
        QTest::newRow("a step in each") << QList<QByteArray>{ wholeTree, press, lastRead } << 4;
        QTest::newRow("another one at once") << listRefresh + listRefresh + QList<QByteArray>{ press } << 5;
        QTest::newRow("a key that goes up") << listRefresh + QList<QByteArray>{ User("key release", "CMainWindow[0]", ""), press }
                + listRefresh << 3;
        for (const QByteArray& open :
             { User("answer", "", ""), User("release", "CMainWindow[0]", ""), User("drag", "CMainWindow[0]", ""),
               User("press", "CMainWindow[0]/Menu[0]", ""),
               User("key press", "CMainWindow[0]", "CMainWindow[0]/Tree[0]/qt_scrollarea_viewport[0]/QLineEdit[0]") }) {
            QTest::newRow(open) << listRefresh + QList<QByteArray>{ open } + listRefresh + QList<QByteArray>{ press } << 6;
        }
    }

    void withoutItsBeginningARunStartsBehindARefresh()
    {
        QFETCH(QList<QByteArray>, listLine);
        QFETCH(int, nStart);
        for (int n = 0; n < listLine.size(); ++n) {
            listLine[n] = Numbered(listLine[n], n + 1);
        }
        CReading reading;
        reading.Write(2, QList<QByteArray>{ Header("a", 2) } + listLine);
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(reading.run.GetStartNumber(), nStart == 0 ? std::numeric_limits<quint64>::max() : quint64(nStart));
        reading.Write(2, {});
        reading.Write(1, QList<QByteArray>{ Header("a", 1) } + listLine);
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(reading.run.GetStartNumber(), quint64(0));
    }

    void aLineThatIsCutOffIsSaid()
    {
        CReading reading;
        reading.Write(1, { header, Numbered(call, 1) }, Numbered(call, 2).left(30));
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList("1"));
        QCOMPARE(reading.run.GetReason(), QString("The last line of '000001.jsonl' is cut off."));
        QVERIFY(!reading.run.HasEnd());
    }

    void lostLinesEndTheComparison()
    {
        CReading reading;
        reading.Write(1, { header, Numbered(call, 1), R"({"kind":"lost","count":3})", Numbered(call, 5), end });
        QVERIFY(reading.Read());
        QVERIFY(!reading.run.IsWhole());
        QCOMPARE(reading.run.GetCompleteTo(), quint64(1));
        QCOMPARE(reading.run.GetReason(), QString("Lines are lost before line 3 of '000001.jsonl': 3."));
    }

    void unknownKeysAndKindsAreIgnored()
    {
        CReading reading;
        reading.Write(
            1, { header, R"({"kind":"weather","n":1,"sun":true})", Numbered(call, 2).replace("\"t\"", "\"moon\":1,\"t\""), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList("2"));
    }

    void whatIsMalformedIsNamed_data()
    {
        QTest::addColumn<QList<QByteArray>>("listLine");
        QTest::addColumn<QString>("strError");
        const QByteArray one = Numbered(call, 1);
        QTest::newRow("another format") << QList<QByteArray>{ QByteArray(header).replace("\"format\":1", "\"format\":2"), one }
                                        << "Line 1 of '000001.jsonl' says format 2, and this version reads format 1 alone.";
        QTest::newRow("no JSON") << QList<QByteArray>{ header, "{{", one }
                                 << "Line 2 of '000001.jsonl' is not a line of a journal.";
        QTest::newRow("an array") << QList<QByteArray>{ header, "[1]", one }
                                  << "Line 2 of '000001.jsonl' is not a line of a journal.";
        QTest::newRow("no number") << QList<QByteArray>{ header, Numbered(call, 0) }
                                   << "Line 2 of '000001.jsonl' has no number or no thread.";
        QTest::newRow("no arguments") << QList<QByteArray>{ header, QByteArray(one).replace("\"args\":[],", "") }
                                      << "Line 2 of '000001.jsonl' is a call without an operation or arguments.";
        QTest::newRow("a difference to nothing") << QList<QByteArray>{ header, Numbered(changedTree, 1) }
                                                 << "Line 2 of '000001.jsonl' has the difference to a tree that is not there.";
        QTest::newRow("no lines") << QList<QByteArray>{ header } << "'000001.jsonl' has no lines that could be replayed.";
    }

    void whatIsMalformedIsNamed()
    {
        QFETCH(QList<QByteArray>, listLine);
        CReading reading;
        reading.Write(1, listLine);
        QVERIFY(!reading.Read());
        QTEST(reading.strError, "strError");
    }

    void whatStandsBeforeDamageIsRead_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("strReason");
        QTest::newRow("no JSON") << QByteArray("{{") << "Line 3 of '000001.jsonl' is not a line of a journal.";
        QTest::newRow("the same number") << Numbered(call, 1) << "Line 3 of '000001.jsonl' has the number 1, which came already.";
    }

    void whatStandsBeforeDamageIsRead()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, strReason);
        CReading reading;
        reading.Write(1, { header, Numbered(call, 1), line, Numbered(call, 2), end });
        reading.Write(2, { Header("a", 2), Numbered(call, 3), end });
        QVERIFY2(reading.Read(), qPrintable(reading.strError));
        QCOMPARE(Numbers(reading.run), QStringList("1"));
        QCOMPARE(reading.run.GetReason(), strReason + " It is left out, with all that follows.");
        QVERIFY(!reading.run.HasEnd());
        QCOMPARE(reading.run.GetCompleteTo(), quint64(1));
    }

    void aFolderOrFileWithoutAJournalIsNamed()
    {
        CReading reading;
        QVERIFY(!reading.Read());
        QCOMPARE(reading.strError, "The folder '" + reading.folder.path() + "' has no journal.");
        QVERIFY(!reading.run.Read(reading.GetPath(1), reading.strError));
        QVERIFY(reading.strError.startsWith("Cannot read '" + reading.GetPath(1) + "': "));
        reading.Write(1, { "{}" });
        QVERIFY(!reading.run.Read(reading.GetPath(1), reading.strError));
        QCOMPARE(reading.strError, QString("Line 1 of '000001.jsonl' is not the header of a journal."));
        reading.Write(1, {});
        QVERIFY(!reading.run.Read(reading.GetPath(1), reading.strError));
        QCOMPARE(reading.strError, QString("'000001.jsonl' is empty."));
    }

    // Bytes changed, cut and doubled anywhere: a run, or one sentence.
    void damageNeverGoesUnsaid()
    {
        QRandomGenerator random(20240607);
        const QByteArray good
            = QList<QByteArray>{ header, Numbered(wholeTree, 1), Numbered(changedTree, 2), Numbered(call, 3), end }.join('\n')
            + '\n';
        int nRefused = 0;
        CReading reading;
        for (int n = 0; n < 1000; ++n) {
            QByteArray bytes = good;
            bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
            bytes = n % 3 == 0 ? bytes.left(random.bounded(bytes.size())) : bytes;
            reading.Write(1, {}, bytes);
            if (!reading.run.Read(reading.GetPath(1), reading.strError)) {
                QVERIFY(reading.strError.endsWith('.') && !reading.strError.contains('\n'));
                ++nRefused;
            }
        }
        QVERIFY2(nRefused > 100 && nRefused < 1000, qPrintable(QString::number(nRefused)));
    }
};

PTV_TEST_MAIN(CRecordedRunTest)
#include "tst_recordedrun.moc"
