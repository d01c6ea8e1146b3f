#include "CProgram.h"
#include "TestMain.h"

#include <QDir>

#include <unistd.h>

namespace {

/// Rows of files that cannot be used: the options, and what the line must name.
void AddFiles()
{
    QTest::newRow("picture is no PNG") << "--shot a.jpg"
                                       << "a.jpg";
    QTest::newRow("picture in a missing folder") << "--shot /no/such/a.png"
                                                 << "/no/such/a.png";
    QTest::newRow("pictures in a missing folder") << "--scenario . --shots /no/such"
                                                  << "No";
    QTest::newRow("list in a missing folder") << "--list /no/such/a.kvtl"
                                              << "/no/such/a.kvtl";
    QTest::newRow("missing scenario") << "--scenario /no/such.json"
                                      << "/no/such.json";
    QTest::newRow("two missing folders, one name") << "--shot /no/a.png --journal /such/a.png"
                                                   << "No folder for '/no/a.png'";
    QTest::newRow("journal in a missing folder") << "--journal /no/such/journal"
                                                 << "/no/such/journal";
    QTest::newRow("journal by way of a missing folder") << "--journal /no/such/../journal"
                                                        << "/no/such/../journal";
    QTest::newRow("journal is a folder") << "--journal /tmp"
                                         << "'/tmp' is a folder";
}

struct SBadOption
{
    const char* szWhat;
    const char* szOptions;
    const char* szNamed; ///< in the line that is printed
};

constexpr SBadOption arrBadOption[] = {
    { "unknown option", "--nonsense", "nonsense" },
    { "argument without option", "list.kvtl", "list.kvtl" },
    { "option without its value", "--list", "list" },
    { "unknown language", "--lang fr", "fr" },
    { "scale is no number", "--scale big", "big" },
    { "scale too large", "--scale 9", "9" },
    { "scale too small", "--scale 0", "0" },
    { "pace is no number", "--pace fast", "fast" },
    { "pace too slow", "--pace 0.5", "0.5" },
    { "pace too fast", "--pace 101", "101" },
    { "pace of a scenario", "--scenario . --pace 10", "--pace" },
    { "time is no number", "--shot a.png --at soon", "soon" },
    { "negative time", "--shot a.png --at=-1", "-1" },
    { "time without a picture", "--at 3", "--at" },
    { "pictures without a scenario", "--shots .", "--shots" },
    { "speed without a replay", "--speed real", "--speed" },
    { "unknown speed", "--replay . --speed slow", "slow" },
    { "replay of a list", "--replay . --list a.kvtl", "--list" },
    { "replay with a scenario", "--replay . --scenario .", "--scenario" },
    { "replay with a masked journal", "--replay . --mask-journal", "--mask-journal" },
    { "seconds in a replay", "--replay . --shot a.png --at 2", "14:03:12.345" },
    { "two times, one picture", "--replay . --shot a.png --at 01:00:00 --at 02:00:00", "--shots" },
    { "pictures of a replay without a time", "--replay . --shots .", "--at" },
    { "time of a replay without a picture", "--replay . --at 01:00:00", "--shot" },
};

} // namespace

class COptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void aBadOptionOrFileEndsWithOneLineAndCodeTwo_data()
    {
        QTest::addColumn<QString>("strOptions");
        QTest::addColumn<QString>("strNamed");

        for (const SBadOption& bad : arrBadOption) {
            QTest::newRow(bad.szWhat) << bad.szOptions << bad.szNamed;
        }
        AddFiles();
        for (const char* szOption : { "--list", "--scenario", "--shot", "--at", "--shots", "--lang", "--theme", "--scale",
                                      "--pace", "--journal", "--replay", "--speed", "--panel", "--control" }) {
            QTest::addRow("%s with nothing", szOption) << szOption + QStringLiteral(" ") << szOption;
        }
    }

    void aBadOptionOrFileEndsWithOneLineAndCodeTwo()
    {
        QFETCH(QString, strOptions);
        QFETCH(QString, strNamed);
        CProgram program;

        QVERIFY(program.Run(strOptions.split(QLatin1Char(' '))));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(strNamed), qPrintable(program.Errors().constFirst()));
        QCOMPARE(program.Output(), QString());
    }

    void aJournalThatNobodyMayWriteIsRefusedBeforeTheStart_data()
    {
        QTest::addColumn<bool>("bThere");
        QTest::newRow("a file") << true;
        QTest::newRow("a folder that takes no file") << false;
    }

    void aJournalThatNobodyMayWriteIsRefusedBeforeTheStart()
    {
        QFETCH(bool, bThere);
        CProgram program;
        const QString strJournal = program.Path("journal");
        if (bThere) {
            program.Write("journal", "of yesterday");
            QVERIFY(QFile::setPermissions(strJournal, QFile::ReadOwner));
        }
        program.SetDisk(DiskReadOnly);

        QVERIFY(program.Run({ "--list", program.Path("tmp/list.kvtl"), "--journal", strJournal }));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors(), QStringList{ "kestrel: No permission to write '" + strJournal + "'; see --help" });
        QCOMPARE(QDir(program.Path("tmp")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
    }

    void twoOptionsForOneFileAreRefusedAndNothingIsWritten_data()
    {
        QTest::addColumn<QString>("strOptions");
        QTest::addColumn<QString>("strNamed");

        QTest::newRow("list, journal") << "--list @a.kvtl --journal @a.kvtl"
                                       << "--list and --journal";
        QTest::newRow("list, journal, both new") << "--list @new --journal @new"
                                                 << "--list and --journal";
        QTest::newRow("list, picture") << "--list @new.png --shot @new.png"
                                       << "--list and --shot";
        QTest::newRow("scenario, journal") << "--scenario @a.json --journal @a.json"
                                           << "--scenario and --journal";
        QTest::newRow("scenario, list") << "--scenario @a.json --list @a.json"
                                        << "--list and --scenario";
        QTest::newRow("panel, journal") << "--panel @a.json --journal @a.json"
                                        << "--journal and --panel";
        QTest::newRow("control library, panel") << "--control @a.json --panel @a.json"
                                                << "--panel and --control";
        QTest::newRow("another spelling") << "--list @new --journal @tmp/../new"
                                          << "--list and --journal";
        QTest::newRow("a symbolic link") << "--list @a.kvtl --journal @link"
                                         << "--list and --journal";
        QTest::newRow("a hard link") << "--list @a.kvtl --journal @twin"
                                     << "--list and --journal";
        QTest::newRow("a link to a new file") << "--list @new --journal @early"
                                              << "--list and --journal";
        QTest::newRow("a link to the folder") << "--list @new --journal @here/new"
                                              << "--list and --journal";
    }

    void twoOptionsForOneFileAreRefusedAndNothingIsWritten()
    {
        QFETCH(QString, strOptions);
        QFETCH(QString, strNamed);
        CProgram program;
        const QByteArray list = CProgram::Read(program.CopyExample("studio.kvtl"));
        const QString strList = program.Write("a.kvtl", list);
        program.Write("a.json", R"({"steps": []})");
        QVERIFY(QFile::link(strList, program.Path("link")) && QFile::link(program.Path("new"), program.Path("early")));
        QVERIFY(QFile::link(program.Path({}), program.Path("here")));
        QVERIFY(::link(qPrintable(strList), qPrintable(program.Path("twin"))) == 0);
        const QStringList listBefore = QDir(program.Path({})).entryList(QDir::AllEntries | QDir::System);

        QVERIFY(program.Run(strOptions.replace(QLatin1Char('@'), program.Path({}) + '/').split(QLatin1Char(' '))));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(strNamed), qPrintable(program.Errors().constFirst()));
        QCOMPARE(CProgram::Read(strList), list);
        QCOMPARE(QDir(program.Path({})).entryList(QDir::AllEntries | QDir::System), listBefore);
    }

    void twoFilesOfOneNameAreTwoFiles()
    {
        CProgram program;
        const QString strList = program.CopyExample("studio.kvtl");

        QVERIFY(program.Run(
            { "--list", strList, "--journal", program.Path("tmp/studio.kvtl"), "--shot", program.Path("a.png"), "--at", "0" }));

        QCOMPARE(program.Errors(), QStringList());
        QCOMPARE(program.ExitCode(), 0);
        QVERIFY(!CProgram::Read(program.Path("tmp/studio.kvtl")).isEmpty());
    }

    void aPictureIsAnnouncedWithItsPathAndTheEnd()
    {
        CProgram program;

        QVERIFY(program.Run({ "--list", program.Path("a.kvtl"), "--shot", program.Path("tmp/../a.png"), "--at", "0" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(program.Output(), "Wrote " + program.Path("a.png") + "; --shot ends Kestrel here\n");
        QVERIFY(QFile::exists(program.Path("a.png")));
    }

    void aFaultyScenarioEndsWithALineThatNamesTheFile()
    {
        CProgram program;
        const QString strFile = program.Write("broken.json", R"({"steps": [{"at": 1, "do": "dance"}]})");

        const QString strJournal = program.Write("a.log", "of yesterday");

        QVERIFY(program.Run({ "--list", program.Path("list.kvtl"), "--scenario", strFile, "--journal", strJournal }));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY(program.Errors().constFirst().contains(strFile));
        QVERIFY(program.Errors().constFirst().contains("dance"));
        QCOMPARE(CProgram::Read(strJournal), QByteArray("of yesterday"));
    }

    void helpTellsEveryOptionAndNeedsNoDisplay()
    {
        CProgram program;

        QVERIFY(program.Run({ "--help", "--platform-that-does-not-exist" }) && program.ExitCode() == 2);
        QVERIFY(program.Run({ "--help" }));

        QCOMPARE(program.ExitCode(), 0);
        for (const char* szOption : { "--list", "--scenario", "--shot", "--at", "--shots", "--lang", "--theme", "--scale",
                                      "--pace", "--journal", "--mask-journal", "--panel", "--control", "--help", "--version",
                                      "SIGTERM", ", 3 the", "4 no display", "5 no font" }) {
            QVERIFY2(program.Output().contains(szOption), szOption);
        }
    }

    void helpNamesTheLanguagesThatThereAre()
    {
        CProgram program;
        QVERIFY(program.Run({ "--help" }));
        const QString strHelp = program.Output();

        QVERIFY(program.Run({ "--lang", "fr" }));

        const QString strError = program.Errors().value(0);
        const QString strCodes = strError.mid(strError.indexOf(": there are ") + 12).section(QLatin1Char(';'), 0, 0);
        QVERIFY2(strCodes.contains("zh_CN") && strHelp.contains("LANGUAGE    " + strCodes + "\n"), qPrintable(strError));
    }

    void helpNamesTheThemesThatThereAre()
    {
        CProgram program;
        QVERIFY(program.Run({ "--help" }));
        const QString strHelp = program.Output();

        QVERIFY(program.Run({ "--theme", "pink" }));

        QCOMPARE(program.Errors(), QStringList{ "kestrel: Unknown theme 'pink': there are dark, contrast; see --help" });
        QVERIFY(strHelp.contains("--theme THEME      dark, contrast\n"));
    }

    void theVersionIsThatOfTheProject()
    {
        CProgram program;

        QVERIFY(program.Run({ "--version" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(program.Output(), QStringLiteral("kestrel " PROJECT_VERSION "\n"));
        QCOMPARE(program.Errors(), QStringList());
    }
};

PTV_TEST_MAIN_CORE(COptionsTest)
#include "tst_options.moc"
