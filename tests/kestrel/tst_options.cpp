#include "CProgram.h"
#include "TestMain.h"

class COptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void aBadOptionOrFileEndsWithOneLineAndCodeTwo_data()
    {
        QTest::addColumn<QString>("strOptions");
        QTest::addColumn<QString>("strNamed");

        QTest::newRow("unknown option") << "--nonsense"
                                        << "nonsense";
        QTest::newRow("argument without option") << "list.kvtl"
                                                 << "list.kvtl";
        QTest::newRow("option without its value") << "--list"
                                                  << "list";
        QTest::newRow("unknown language") << "--lang fr"
                                          << "fr";
        QTest::newRow("scale is no number") << "--scale big"
                                            << "big";
        QTest::newRow("scale too large") << "--scale 9"
                                         << "9";
        QTest::newRow("scale too small") << "--scale 0"
                                         << "0";
        QTest::newRow("pace is no number") << "--pace fast"
                                           << "fast";
        QTest::newRow("pace too slow") << "--pace 0.5"
                                       << "0.5";
        QTest::newRow("pace too fast") << "--pace 101"
                                       << "101";
        QTest::newRow("pace of a scenario") << "--scenario . --pace 10"
                                            << "--pace";
        QTest::newRow("time is no number") << "--shot a.png --at soon"
                                           << "soon";
        QTest::newRow("negative time") << "--shot a.png --at=-1"
                                       << "-1";
        QTest::newRow("time without a picture") << "--at 3"
                                                << "--at";
        QTest::newRow("pictures without a scenario") << "--shots ."
                                                     << "--shots";
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

    void aFaultyScenarioEndsWithALineThatNamesTheFile()
    {
        CProgram program;
        const QString strFile = program.Write("broken.json", R"({"steps": [{"at": 1, "do": "dance"}]})");

        QVERIFY(program.Run({ "--list", program.Path("list.kvtl"), "--scenario", strFile }));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY(program.Errors().constFirst().contains(strFile));
        QVERIFY(program.Errors().constFirst().contains("dance"));
    }

    void helpTellsEveryOptionAndNeedsNoDisplay()
    {
        CProgram program;

        QVERIFY(program.Run({ "--help", "--platform-that-does-not-exist" }) && program.ExitCode() == 2);
        QVERIFY(program.Run({ "--help" }));

        QCOMPARE(program.ExitCode(), 0);
        for (const char* szOption :
             { "--list", "--scenario", "--shot", "--at", "--lang", "--scale", "--pace", "--help", "SIGTERM", ", 3 the" }) {
            QVERIFY2(program.Output().contains(szOption), szOption);
        }
    }
};

PTV_TEST_MAIN_CORE(COptionsTest)
#include "tst_options.moc"
