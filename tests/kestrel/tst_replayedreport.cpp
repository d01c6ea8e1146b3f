#include "CProgram.h"
#include "SessionLines.h"
#include "TestMain.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QProcess>
#include <QRandomGenerator>

namespace {

constexpr int nCodeBadOption = 2;
constexpr int nCodeDiffers = 6;
constexpr int nCodeNoRecording = 7;
constexpr int nQuietLines = 45;  ///< of the session: up to where a processor is selected
constexpr int nSettledLine = 22; ///< of the session: a message by which nothing is refreshed

const QString strMenu = "CMainWindow[0]/QMenuBar[0]/QMenu[0]";
const QString strDialog = "CMainWindow[0]/QFileDialog[0]";

/// The session, cut off where the user saves a report by the menu.
QVector<QJsonObject> ReportLines()
{
    QVector<QJsonObject> vecLine = SessionLines::Get(nQuietLines);
    const QString strBar = "CMainWindow[0]/QMenuBar[0]";
    const auto append
        = [&](const QString& strOperation, const QJsonObject& fields) { SessionLines::Append(vecLine, strOperation, fields); };
    append("shortcut", { { "keys", "Alt+P" }, { "entry", "" }, { "window", "CMainWindow[0]" }, { "target", strBar } });
    append("menu", { { "menu", strMenu } });
    append("key press",
           { { "window", strMenu }, { "target", strBar }, { "key", Qt::Key_R }, { "modifiers", 0 }, { "text", "r" } });
    append("menu closed", { { "menu", strMenu } });
    append("entry", { { "menu", strMenu }, { "number", 2 }, { "entry", "Save &report…" } });
    append("dialog", { { "dialog", strDialog }, { "title", "Save report" } });
    append("key press", { { "window", strDialog }, { "target", strDialog }, { "key", Qt::Key_Return }, { "text", "\r" } });
    append("dialog", { { "dialog", strDialog + "/QMessageBox[0]" }, { "title", "Save report" } });
    append("answer", { { "dialog", strDialog + "/QMessageBox[0]" }, { "result", 16384 } });
    append("answer", { { "dialog", strDialog }, { "result", 1 }, { "files", QJsonArray{ "/tmp/report.tar.gz" } } });
    return vecLine;
}

QStringList Folders(const CProgram& program)
{
    return QDir(program.Path({})).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

} // namespace

/// What an operator has saved, replayed by one who has not seen it happen.
class CReplayedReportTest : public QObject
{
    Q_OBJECT

private slots:
    void savingTheReportIsNoDifference_data()
    {
        QTest::addColumn<QStringList>("listOption");
        QTest::newRow("in its language") << QStringList{};
        QTest::newRow("in another one") << QStringList{ "--lang", "de" };
    }

    void savingTheReportIsNoDifference()
    {
        QFETCH(QStringList, listOption);
        CProgram program;
        const QString strFile = program.Write("000001.jsonl", SessionLines::Write(ReportLines()));

        QVERIFY(program.Run(QStringList{ "--replay", strFile } + listOption));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().contains("passed over"), qPrintable(program.Output()));
        QVERIFY2(!program.Output().contains("on the screen differs"), qPrintable(program.Output()));
    }

    // Something the host has here too is missed.
    void aDialogThatDoesNotComeIsOne()
    {
        QVector<QJsonObject> vecLine = ReportLines();
        QJsonObject& entry = vecLine[SessionLines::Find(vecLine, "entry")];
        entry["menu"] = "CMainWindow[0]/QMenuBar[0]/QMenu[2]";
        entry["number"] = 0;
        CProgram program;

        QVERIFY(program.Run({ "--replay", program.Write("000001.jsonl", SessionLines::Write(vecLine)) }));

        QCOMPARE(program.ExitCode(), nCodeDiffers);
        QVERIFY2(program.Output().contains("the dialog \"Save report\" does not open"), qPrintable(program.Output()));
    }

    void anEntryIsChosenInAnotherLanguage()
    {
        QVector<QJsonObject> vecLine = SessionLines::Get(nQuietLines);
        const QString strView = "CMainWindow[0]/QMenuBar[0]/QMenu[2]";
        const QString strBar = "CMainWindow[0]/QMenuBar[0]";
        SessionLines::Append(vecLine, "shortcut",
                             { { "keys", "Alt+V" }, { "entry", "" }, { "window", "CMainWindow[0]" }, { "target", strBar } });
        SessionLines::Append(vecLine, "menu", { { "menu", strView } });
        SessionLines::Append(vecLine, "key press",
                             { { "window", strView }, { "target", strBar }, { "key", Qt::Key_J }, { "text", "j" } });
        SessionLines::Append(vecLine, "menu closed", { { "menu", strView } });
        SessionLines::Append(vecLine, "entry", { { "menu", strView }, { "number", 0 }, { "entry", "&Journal" } });
        CProgram program;
        const QString strFile = program.Write("000001.jsonl", SessionLines::Write(vecLine));
        const QString strBefore = SessionLines::GetTime(vecLine[nQuietLines - 1]);

        QVERIFY(program.Run({ "--replay", strFile, "--lang", "de", "--shot", program.Path("after.png") }));
        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY(program.Run({ "--replay", strFile, "--lang", "de", "--shot", program.Path("before.png"), "--at", strBefore }));

        const QRect journal(400, 30, 600, 60); // its head, while it is there
        QVERIFY(QImage(program.Path("after.png")).copy(journal) != QImage(program.Path("before.png")).copy(journal));
    }

    void behindADifferenceThePicturesAreTaken()
    {
        const QVector<QJsonObject> vecLine = SessionLines::Get();
        const QString strAt = SessionLines::GetTime(vecLine[SessionLines::Find(vecLine, "MoveProcessor")], 30);
        CProgram program;
        const QStringList listOption{ "--replay", SESSION_FOLDER, "--at", strAt, "--shot" };

        QVERIFY(program.Run(listOption + QStringList{ program.Path("same.png") }));
        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY(program.Run(
            listOption + QStringList{ program.Path("other.png"), "--panel", VARIANT_FOLDER "/libpanel_RenamesInCapitals.so" }));

        QCOMPARE(program.ExitCode(), nCodeDiffers);
        QCOMPARE(program.Errors(), QStringList());
        QVERIFY2(program.Output().contains("RenameProcessor"), qPrintable(program.Output()));
        const QRect rows(0, 60, 360, 600);
        QCOMPARE(QImage(program.Path("other.png")).copy(rows), QImage(program.Path("same.png")).copy(rows));
    }

    void behindADifferenceNobodyIsAskedAboutTheList()
    {
        QVector<QJsonObject> vecLine = SessionLines::Get();
        SessionLines::Append(vecLine, "save", { { "saved", false }, { "asked", true }, { "reason", "The disk is full." } });
        CProgram program;
        const QString strFile = program.Write("000001.jsonl", SessionLines::Write(vecLine));

        const QStringList listBefore = Folders(program);

        QVERIFY(program.Run({ "--replay", strFile, "--panel", VARIANT_FOLDER "/libpanel_RenamesInCapitals.so" }));

        QCOMPARE(program.ExitCode(), nCodeDiffers);
        QCOMPARE(Folders(program), listBefore); // nor is it saved elsewhere
    }

    void aPictureThatCannotBeTakenIsNamed()
    {
        const QString strAt = SessionLines::GetTime(SessionLines::Get().constLast(), -5); // the window has closed
        CProgram program;

        QVERIFY(program.Run({ "--replay", SESSION_FOLDER, "--at", strAt, "--shot", program.Path("a.png") }));

        QVERIFY(!QFile::exists(program.Path("a.png")));
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(program.Path("a.png") + "' was not taken"),
                 qPrintable(program.Errors().constFirst()));
    }

    void whatTheRecordingLacksIsSaidAndNoDifference_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strSentence");
        const QVector<QJsonObject> vecLine = SessionLines::Get();
        const int nBegin = SessionLines::Find(vecLine, "DeleteProcessor");
        QTest::newRow("a call that never came back") << SessionLines::Write(vecLine.mid(0, nBegin + 1))
                                                     << "DeleteProcessor(\"0ca02730-f287-54ad-b459-ce9e5a6af4ca\", false)";
        QTest::newRow("no end") << SessionLines::Write(vecLine.mid(0, nQuietLines)) << "The recording has no end";
        QVector<QJsonObject> vecGap = vecLine;
        vecGap.remove(nSettledLine);
        QTest::newRow("a gap") << SessionLines::Write(vecGap) << "1 of the numbers have no line, the first of them 22";
        QTest::newRow("damage in the middle")
            << SessionLines::Write(vecLine.mid(0, nQuietLines)) + "{{\n" + SessionLines::Write(vecLine.mid(nQuietLines))
            << "Line 46 of '000001.jsonl' is not a line of a journal. It is left out";
    }

    void whatTheRecordingLacksIsSaidAndNoDifference()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, strSentence);
        CProgram program;

        QVERIFY(program.Run({ "--replay", program.Write("000001.jsonl", bytes) }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().contains('\n' + strSentence), qPrintable(program.Output()));
    }

    void missingLinesMayBeWhyACallDiffers()
    {
        QVector<QJsonObject> vecLine = SessionLines::Get();
        vecLine.remove(nSettledLine);
        CProgram program;
        const QString strFile = program.Write("000001.jsonl", SessionLines::Write(vecLine));

        QVERIFY(program.Run({ "--replay", strFile, "--panel", VARIANT_FOLDER "/libpanel_RenamesInCapitals.so" }));

        QCOMPARE(program.ExitCode(), nCodeDiffers);
        QVERIFY2(program.Output().endsWith("Lines are missing before it, the first one with the number 22: that may be why.\n"),
                 qPrintable(program.Output()));
    }

    void anUnpackedReportSaysWhichRunItPlays()
    {
        CProgram program;
        QVERIFY(QDir(program.Path({})).mkpath("report/journal"));
        QVector<QJsonObject> vecLine = SessionLines::Get(nQuietLines);
        program.Write("report/journal/000002.jsonl", SessionLines::Write(vecLine));
        vecLine[0]["run"] = "an earlier one";
        program.Write("report/journal/000001.jsonl", SessionLines::Write(vecLine));

        QVERIFY(program.Run({ "--replay", program.Path("report") }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().contains("There are 2 runs in it; this is the last one."), qPrintable(program.Output()));
        QVERIFY2(program.Output().contains("11:12:20.997 to 11:12:21.369 (Etc/UTC, UTC)"), qPrintable(program.Output()));
    }

    void ofAReportThatIsCutOffTheBeginningIsPlayed()
    {
        CProgram program;
        const QString strReport = program.Path("report.tar.gz");
        QByteArray picture;
        QRandomGenerator random(1);
        while (picture.size() < 400000) {
            picture += static_cast<char>(random.bounded(256));
        }
        program.Write("window.png", picture);
        QVERIFY(QDir(program.Path({})).mkpath("journal")
                && QFile::copy(SESSION_FOLDER "/000001.jsonl", program.Path("journal/000001.jsonl")));
        QCOMPARE(QProcess::execute("tar", { "-czf", strReport, "-C", program.Path({}), "journal", "window.png" }), 0);
        QVERIFY(QFile::resize(strReport, QFileInfo(strReport).size() / 2));

        QVERIFY(program.Run({ "--replay", strReport }));

        QVERIFY2(program.ExitCode() == 0, qPrintable(program.Output()));
        QVERIFY2(program.Output().contains("The report is damaged"), qPrintable(program.Output()));

        QVERIFY(QFile::resize(strReport, 200));
        QVERIFY(program.Run({ "--replay", strReport }));
        QCOMPARE(program.ExitCode(), nCodeNoRecording);
        QVERIFY(program.Errors().join('\n').startsWith("kestrel: Cannot read the report '" + strReport + "': "));
    }

    void theListingSaysWhatHappenedAndPlaysNothing()
    {
        const QString strAlpha = "alpha (1749f965-30cb-5696-9c48-ba06fd03bbd3)";
        CProgram program;
        program.SetVariable("QT_QPA_PLATFORM", "none"); // it needs no display

        QVERIFY(program.Run({ "--replay", SESSION_FOLDER, "--listing" }));

        QCOMPARE(program.ExitCode(), 0);
        const QStringList listLine = program.Output().split('\n');
        for (const QString& strLine :
             { "11:12:21.293  user: press of the left button on " + strAlpha,
               "11:12:21.494  command: RenameProcessor(" + strAlpha + ", \"uno\")",
               QString("11:12:21.509  message: 1 ListChanged, by RenameProcessor"),
               QString("11:12:21.635  user: press of the right button on gamma (0ca02730-f287-54ad-b459-ce9e5a6af4ca)"),
               QString("11:12:21.765  user: dialog \"Delete processors\""),
               QString(
                   "11:12:23.032  user: press of the left button with Ctrl on two (ab68ea98-52a5-57b9-80c9-da13cb92e105)") }) {
            QVERIFY2(listLine.contains(strLine), qPrintable(strLine + " is not in\n" + program.Output()));
        }
        QVERIFY(listLine.filter("GetDiscoveredTree").isEmpty());
    }

    void theListingGoesWithNothingThatPlays_data()
    {
        QTest::addColumn<QStringList>("listOption");
        QTest::newRow("without a replay") << QStringList{ "--listing" };
        QTest::newRow("a picture") << QStringList{ "--replay", SESSION_FOLDER, "--listing", "--shot", "a.png" };
        QTest::newRow("a speed") << QStringList{ "--replay", SESSION_FOLDER, "--listing", "--speed", "real" };
    }

    void theListingGoesWithNothingThatPlays()
    {
        QFETCH(QStringList, listOption);
        CProgram program;
        QVERIFY(program.Run(listOption));
        QCOMPARE(program.ExitCode(), nCodeBadOption);
        QVERIFY2(program.Errors().join('\n').contains("--listing"), qPrintable(program.Errors().join('\n')));
    }
};

PTV_TEST_MAIN(CReplayedReportTest)
#include "tst_replayedreport.moc"
