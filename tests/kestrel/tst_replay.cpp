#include "CProgram.h"
#include "TestMain.h"
#include "journal/recording/CJournalMask.h"
#include "journal/recording/NodeJson.h"
#include "journal/replay/CRecordedRun.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

namespace {

constexpr int nCodeDiffers = 6;
constexpr int nCodeNoRecording = 7;
constexpr int nFewLines = 40; ///< of the session: the first second

QString SessionFile()
{
    return QStringLiteral(SESSION_FOLDER "/000001.jsonl");
}

QStringList Lines()
{
    return QString::fromUtf8(CProgram::Read(SessionFile())).split('\n', Qt::SkipEmptyParts);
}

/// When the recorded call began, as --at takes it, some milliseconds later.
QString TimeOf(const QString& strOperation, int nLaterMs)
{
    for (const QString& strLine : Lines()) {
        if (strLine.contains("\"operation\":\"" + strOperation + '"')) {
            const int nDate = strLine.indexOf("\"date\":\"") + int(qstrlen("\"date\":\""));
            const QDateTime time
                = QDateTime::fromString(strLine.mid(nDate, int(qstrlen("2026-01-01T00:00:00.000Z"))), Qt::ISODateWithMs);
            return time.addMSecs(nLaterMs).toString("HH:mm:ss.zzz");
        }
    }
    return {};
}

/// The session without its first lines, as the second file of its run, which has whole trees.
QByteArray SecondFile(int nGone)
{
    CRecordedRun run;
    QString strError;
    if (!run.Read(SessionFile(), strError)) {
        qFatal("%s", qPrintable(strError));
    }
    QJsonObject header = run.GetHeader();
    header["file"] = 2;
    QByteArray bytes = QJsonDocument(header).toJson(QJsonDocument::Compact) + '\n';
    CJournalMask mask(false);
    for (const SRecordedLine& line : run.GetLines().mid(nGone)) {
        QJsonObject fields = line.fields;
        if (line.pTree) {
            fields["result"] = QJsonObject{ { "whole", NodeJson::GetWhole(*line.pTree, mask) } };
        }
        bytes += QJsonDocument(fields).toJson(QJsonDocument::Compact) + '\n';
    }
    return bytes + Lines().constLast().toUtf8() + '\n';
}

/// What is in the program's folder and in that for temporary files, but Qt's own place there.
QStringList Files(const CProgram& program)
{
    const QDir::Filters filters = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    const QStringList listTemporary = QDir(program.Path("tmp")).entryList(filters);
    return QDir(program.Path({})).entryList(filters) + listTemporary.filter(QRegularExpression("^(?!runtime-)"));
}

/// An archive as Kestrel saves it, with the session in it.
QString MakeReport(const CProgram& program)
{
    const QString strReport = program.Path("report.tar.gz");
    const QStringList listArgument{ "-czf", strReport, "--transform", "s,^,journal/,", "-C", SESSION_FOLDER, "000001.jsonl" };
    return QProcess::execute("tar", listArgument) == 0 ? strReport : QString();
}

} // namespace

/// A recorded session, made by replay/record.py, is played again.
class CReplayTest : public QObject
{
    Q_OBJECT

private slots:
    void thePanelOfTodayDoesWhatItDid_data()
    {
        QTest::addColumn<QString>("strForm");
        for (const char* szForm : { "file", "folder", "report" }) {
            QTest::newRow(szForm) << QString(szForm);
        }
    }

    void thePanelOfTodayDoesWhatItDid()
    {
        QFETCH(QString, strForm);
        CProgram program;
        const QString strReport = MakeReport(program);
        QVERIFY(!strReport.isEmpty());
        const QStringList listBefore = Files(program);

        QVERIFY(program.Run({ "--replay",
                              strForm == "file"         ? SessionFile()
                                  : strForm == "report" ? strReport
                                                        : SESSION_FOLDER }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().endsWith("no call differs\n"), qPrintable(program.Output()));
        QCOMPARE(program.Errors(), QStringList());
        QCOMPARE(Files(program).join(' '), listBefore.join(' '));
    }

    void withoutItsFirstFileTheRestIsPlayed_data()
    {
        QTest::addColumn<int>("nPercent");
        for (const int nPercent : { 5, 20, 40, 60, 80 }) {
            QTest::newRow(qPrintable(QString::number(nPercent))) << nPercent;
        }
    }

    void withoutItsFirstFileTheRestIsPlayed()
    {
        QFETCH(int, nPercent);
        CProgram program;
        const QString strFile = program.Write("000002.jsonl", SecondFile(Lines().size() * nPercent / 100));

        QVERIFY(program.Run({ "--replay", strFile }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().contains("The first files of the run are gone."), qPrintable(program.Output()));
        QVERIFY2(!program.Output().contains(" 0 gestures"), qPrintable(program.Output()));
    }

    void aPanelThatCallsAnotherWayIsFound_data()
    {
        QTest::addColumn<QString>("strPanel");
        QTest::addColumn<QString>("strCall");
        QTest::newRow("renames in capitals") << "RenamesInCapitals"
                                             << "RenameProcessor";
        QTest::newRow("deletes another") << "DeletesAnother"
                                         << "DeleteProcessor";
        QTest::newRow("moves in another order") << "MovesBackwards"
                                                << "MoveProcessor";
    }

    void aPanelThatCallsAnotherWayIsFound()
    {
        QFETCH(QString, strPanel);
        QFETCH(QString, strCall);
        CProgram program;

        QVERIFY(program.Run({ "--replay", SESSION_FOLDER, "--panel", VARIANT_FOLDER "/libpanel_" + strPanel + ".so" }));

        QCOMPARE(program.ExitCode(), nCodeDiffers);
        const QString strLast = program.Output().section('\n', -2, -2);
        QVERIFY2(strLast.startsWith("the first call that differs: ") && strLast.contains(strCall), qPrintable(program.Output()));
    }

    void thereArePicturesOfEachTimeThatIsAskedFor()
    {
        CProgram program;
        const QString strBefore = TimeOf("RenameProcessor", -1);
        const QString strAfter = TimeOf("RenameProcessor", 200);

        QVERIFY(program.Run({ "--replay", SESSION_FOLDER, "--at", strAfter, "--at", strBefore, "--shots", program.Path("tmp") }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        const QImage before(program.Path("tmp/" + QString(strBefore).replace(':', '-') + ".png"));
        const QImage after(program.Path("tmp/" + QString(strAfter).replace(':', '-') + ".png"));
        QCOMPARE(before.size(), QSize(1040, 720));
        QCOMPARE(after.size(), before.size());
        QVERIFY(before != after);
    }

    void atTheSpeedOfTheRecordingItTakesAsLong()
    {
        CProgram program;
        const QStringList listLine = Lines().mid(0, nFewLines);
        const QString strFile = program.Write("000001.jsonl", listLine.join('\n').toUtf8() + '\n');
        const auto getTime = [](const QString& strLine) {
            return QJsonDocument::fromJson(strLine.toUtf8()).object().value("t").toDouble() / 1000;
        };
        QElapsedTimer timer;
        timer.start();

        QVERIFY(program.Run({ "--replay", strFile, "--speed", "real" }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY(timer.elapsed() >= getTime(listLine.constLast()) - getTime(listLine[1]));
    }

    void itLooksAsTheOptionsSay()
    {
        CProgram program;
        QVERIFY(
            program.Run({ "--replay", SESSION_FOLDER, "--scale", "2", "--theme", "contrast", "--shot", program.Path("a.png") }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        const QImage image(program.Path("a.png"));
        QCOMPARE(image.size(), QSize(2080, 1440));
        QCOMPARE(image.pixelColor(image.width() / 2, 2), QColor(Qt::black));
    }

    void aTimeOutsideTheRecordingIsABadOption()
    {
        CProgram program;
        QVERIFY(program.Run({ "--replay", SESSION_FOLDER, "--at", TimeOf("Attach", -60000), "--shot", program.Path("a.png") }));
        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY(program.Errors().constFirst().contains("is not in the recording"));
    }

    void aPathThatIsNotThereIsABadOption()
    {
        CProgram program;
        QVERIFY(program.Run({ "--replay", program.Path("missing.jsonl") }));
        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors(),
                 QStringList("kestrel: Cannot read '" + program.Path("missing.jsonl") + "': No such file or directory"));
    }

    void whatIsNoRecordingEndsWithItsCode_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("an empty folder") << "tmp";
        QTest::newRow("a list") << "studio.kvtl";
        QTest::newRow("no archive") << "broken.tar.gz";
        QTest::newRow("a file without lines") << "000001.jsonl";
        QTest::newRow("its end alone") << "000002.jsonl";
        QTest::newRow("an empty archive") << "empty.tar.gz";
    }

    void whatIsNoRecordingEndsWithItsCode()
    {
        QFETCH(QString, strName);
        CProgram program;
        program.CopyExample("studio.kvtl");
        program.Write("broken.tar.gz", "no archive");
        program.Write("000001.jsonl", "");
        program.Write("000002.jsonl", SecondFile(Lines().size() - 5));
        program.Write("empty.tar.gz", "");

        QVERIFY(program.Run({ "--replay", program.Path(strName) }));

        QCOMPARE(program.ExitCode(), nCodeNoRecording);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(program.Path(strName)), qPrintable(program.Errors().constFirst()));
    }
};

PTV_TEST_MAIN(CReplayTest)
#include "tst_replay.moc"
