#include "CProgram.h"
#include "TestMain.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>

class CProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void startsWithThePanelTakesAPictureAndQuits()
    {
        CProgram program;
        const QString strList = program.CopyExample("studio.kvtl");

        QVERIFY(program.Run({ "--list", strList, "--shot", program.Path("a.png"), "--at", "0.5" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(program.Errors(), QStringList());
        const QImage picture(program.Path("a.png"));
        QVERIFY(!picture.isNull());
        // The tree's own background, between the rows and the tool bar's left end.
        QCOMPARE(picture.pixelColor(8, 340).name(), QStringLiteral("#1c1e21"));
    }

    void theScaleMultipliesThePicture_data()
    {
        QTest::addColumn<QString>("strScale");
        QTest::addColumn<double>("dScale");

        QTest::newRow("one") << "1" << 1.0;
        QTest::newRow("one and a half") << "1.5" << 1.5;
        QTest::newRow("two") << "2" << 2.0;
    }

    void theScaleMultipliesThePicture()
    {
        QFETCH(QString, strScale);
        QFETCH(double, dScale);
        CProgram program;

        QVERIFY(program.Run(
            { "--list", program.Path("a.kvtl"), "--scale", strScale, "--shot", program.Path("a.png"), "--at", "0.1" }));

        QCOMPARE(program.ExitCode(), 0);
        QCOMPARE(QImage(program.Path("a.png")).size(), QSize(qRound(1040 * dScale), qRound(720 * dScale)));
    }

    void theListIsBackAfterTheNextStart()
    {
        CProgram program;
        const QString strList = program.CopyExample("studio.kvtl");
        const QString strScenario
            = program.Write("a.json", R"({"steps": [{"at": 0, "do": "add-group", "name": "Night shift"}]})");
        const QStringList listOption{ "--list", strList, "--shot", program.Path("a.png"), "--at", "0.5" };

        QVERIFY(program.Run(listOption + QStringList{ "--scenario", strScenario }));
        const QByteArray saved = CProgram::Read(strList);
        const QString strNothing = program.Write("b.json", R"({"steps": []})");
        QVERIFY(program.Run(listOption + QStringList{ "--scenario", strNothing }));

        QVERIFY(saved.contains("Night shift"));
        QCOMPARE(CProgram::Read(strList), saved);
    }

    void aListThatCannotBeSavedIsToldAndStaysAsItWas_data()
    {
        QTest::addColumn<int>("nDisk");
        QTest::addColumn<QString>("strTold");
        QTest::newRow("read-only folder") << int(DiskReadOnly) << "kestrel: The list is in /.+/tmp/.+, not at its place\\. .*";
        QTest::newRow("full disk") << int(DiskFull) << "kestrel: The list could not be saved anywhere\\. .*";
    }

    void aListThatCannotBeSavedIsToldAndStaysAsItWas()
    {
        QFETCH(int, nDisk);
        QFETCH(QString, strTold);
        CProgram program;
        const QString strList = program.CopyExample("studio.kvtl");
        const QByteArray before = CProgram::Read(strList);
        const QString strScenario
            = program.Write("a.json", R"({"steps": [{"at": 0, "do": "add-group", "name": "Night shift"}]})");
        // The picture, which ends the run, goes nowhere: only the list is to fail.
        QVERIFY(QFile::link("/dev/null", program.Path("a.png")));
        const QStringList listBefore = QDir(QFileInfo(strList).path()).entryList(QDir::Files);
        program.SetDisk(EnDisk(nDisk));

        QVERIFY(program.Run({ "--list", strList, "--scenario", strScenario, "--shot", program.Path("a.png"), "--at", "0.5" }));

        QCOMPARE(program.ExitCode(), 3);
        const QStringList listTold = program.Errors().filter(QRegularExpression(QRegularExpression::anchoredPattern(strTold)));
        QVERIFY2(listTold.size() == 1 && listTold.constFirst().contains(strList), qPrintable(program.Errors().join('\n')));
        QCOMPARE(CProgram::Read(strList), before);
        QCOMPARE(QDir(QFileInfo(strList).path()).entryList(QDir::Files), listBefore);
    }

    void aDamagedListIsNamedAndLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("text");

        CProgram program;
        const QByteArray good = CProgram::Read(program.CopyExample("studio.kvtl"));
        QTest::newRow("not a list at all") << QByteArray("hello");
        QTest::newRow("truncated") << good.left(good.size() / 2);
        QTest::newRow("a changed name") << QByteArray(good).replace("Floor", "Flaor");
    }

    void aDamagedListIsNamedAndLeftAlone()
    {
        QFETCH(QByteArray, text);
        CProgram program;
        const QString strList = program.Write("damaged.kvtl", text);

        QVERIFY(program.Run({ "--list", strList, "--shot", program.Path("a.png"), "--at", "0.5" }));

        QCOMPARE(program.ExitCode(), 0);
        QVERIFY(!program.Errors().isEmpty());
        QVERIFY2(program.Errors().constFirst().contains(strList), qPrintable(program.Errors().constFirst()));
        QCOMPARE(CProgram::Read(strList), text);
    }

    void aLibraryThatIsNoPanelEndsWithTheLoadersMessage_data()
    {
        QTest::addColumn<QString>("strFile");
        QTest::addColumn<QString>("strNamed");

        QTest::newRow("no such file") << "/no/such/library.so"
                                      << "/no/such/library";
        QTest::newRow("no library") << "/etc/passwd"
                                    << "/etc/passwd";
        QTest::newRow("another library") << "libQt5Core.so.5"
                                         << "CProcessorTreeView_Init";
    }

    void aLibraryThatIsNoPanelEndsWithTheLoadersMessage()
    {
        QFETCH(QString, strFile);
        QFETCH(QString, strNamed);
        CProgram program;

        QVERIFY(program.Run({ "--list", program.Path("a.kvtl"), "--panel", strFile }));

        QCOMPARE(program.ExitCode(), 1);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().contains(strNamed), qPrintable(program.Errors().constFirst()));
    }

    void aPictureThatCannotBeWrittenEndsWithCodeTwo()
    {
        CProgram program;
        QVERIFY(QDir().mkdir(program.Path("taken.png")));

        QVERIFY(program.Run({ "--list", program.Path("a.kvtl"), "--shot", program.Path("taken.png"), "--at", "0" }));

        QCOMPARE(program.ExitCode(), 2);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY(program.Errors().constFirst().contains("taken.png"));
    }
};

PTV_TEST_MAIN(CProgramTest)
#include "tst_program.moc"
