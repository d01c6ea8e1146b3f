#include "CProgram.h"
#include "TestMain.h"

#include <QImage>

/// Kestrel with a control library of another make.
class COtherControlTest : public QObject
{
    Q_OBJECT

private slots:
    void theEightObjectsAloneRunThePanel()
    {
        CProgram program;

        QVERIFY(program.Run(
            { "--control", BARE_CONTROL, "--journal", program.Path("a.log"), "--shot", program.Path("a.png"), "--at", "1" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(program.Errors(), QStringList());
        QVERIFY(!QImage(program.Path("a.png")).isNull());
        const QByteArray journal = CProgram::Read(program.Path("a.log"));
        QVERIFY2(journal.contains("GetDiscoveredTree() = \"1 groups, 2 processors\""), journal.constData());
        QVERIFY2(journal.contains("ExportList"), "the panel saves the list at its end");
    }

    void whatNeedsMoreThanTheEightObjectsIsRefused_data()
    {
        QTest::addColumn<QStringList>("listOption");

        QTest::newRow("list") << QStringList{ "--list", "FOLDER/a.kvtl" };
        QTest::newRow("scenario") << QStringList{ "--scenario", "FOLDER/a.json" };
        QTest::newRow("pace") << QStringList{ "--pace", "10" };
    }

    void whatNeedsMoreThanTheEightObjectsIsRefused()
    {
        QFETCH(QStringList, listOption);
        CProgram program;
        program.Write("a.json", R"({"steps": []})");
        listOption.last().replace("FOLDER", program.Path("."));

        QVERIFY(program.Run(QStringList{ "--control", BARE_CONTROL } + listOption));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(listOption.constFirst()), qPrintable(program.Errors().constFirst()));
    }

    void ourOwnLibraryMayBeNamedToo()
    {
        CProgram program;
        const QString strList = program.CopyExample("studio.kvtl");

        QVERIFY(program.Run({ "--control", OWN_CONTROL, "--list", strList, "--shot", program.Path("a.png"), "--at", "0.5" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(program.Errors(), QStringList());
    }

    void whatIsNoControlLibraryEndsWithOneLineAndCodeOne_data()
    {
        QTest::addColumn<QString>("strLibrary");
        QTest::addColumn<QString>("strNamed");

        QTest::newRow("no such file") << "/no/such.so"
                                      << "/no/such.so";
        QTest::newRow("no library") << EXAMPLES_FOLDER "/studio.kvtl" << "studio.kvtl";
        QTest::newRow("no object") << WIDGET_LIBRARY << "has no g_pConfigControl";
        QTest::newRow("the panel, which needs one") << PANEL_LIBRARY << "has no g_pConfigControl";
        QTest::newRow("of another version") << OTHER_VERSION << "was built for another version of Kestrel";
        QTest::newRow("objects that nobody sets") << EMPTY_CONTROL << "has set no g_pConfigControl";
    }

    void whatIsNoControlLibraryEndsWithOneLineAndCodeOne()
    {
        QFETCH(QString, strLibrary);
        QFETCH(QString, strNamed);
        CProgram program;

        QVERIFY(program.Run({ "--control", strLibrary }));

        QCOMPARE(program.ExitCode(), 1);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(strNamed), qPrintable(program.Errors().constFirst()));
    }
};

PTV_TEST_MAIN_CORE(COtherControlTest)
#include "tst_othercontrol.moc"
