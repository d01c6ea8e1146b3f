#include "CProgram.h"
#include "TestMain.h"

#include <QDir>

#include <csignal>

namespace {

constexpr int nControlObjects = 7; ///< to which the panel attaches itself

/// Adds a group, takes the picture "up" when all other marks were carried out, another later, and goes on.
QByteArray Scenario(const QByteArray& listMark = {})
{
    return R"({"steps": [{"at": 0, "do": "add-group", "name": "Night shift"}],
               "ui": [)"
        + listMark + R"({"at": 0.6, "shot": "up"}, {"at": 1.0, "shot": "later"}, {"at": 300, "shot": "never"}]})";
}

/// The program with a list, running until a signal ends it.
class CRun
{
public:
    explicit CRun(const QByteArray& listMark = {})
        : strList(program.CopyExample("studio.kvtl")), strScenario(program.Write("a.json", Scenario(listMark)))
    { }

    bool Start()
    {
        program.Start({ "--list", strList, "--scenario", strScenario, "--shots", program.Path("tmp"), "--journal",
                        program.Path("tmp/journal") });
        return program.WaitForOutput("-up.png");
    }

    bool EndBy(int nSignal)
    {
        program.Send(nSignal);
        return program.WaitForEnd();
    }

    QByteArray List() const
    {
        return CProgram::Read(strList);
    }

    /// The commands that the library got since the start, in their order.
    QStringList Commands() const
    {
        QStringList listCommand;
        for (const QString& strLine : QString::fromUtf8(CProgram::Read(program.Path("tmp/journal"))).split('\n')) {
            const QStringList listPart = strLine.split('\t');
            if (listPart.value(2) == "command" && !listPart.value(5).contains("came back")) {
                listCommand.append(listPart.value(5));
            }
        }
        return listCommand;
    }

    /// listCommand with what the panel calls at its start and at its end.
    QStringList WholeRun(const QStringList& listCommand) const
    {
        QStringList listWhole = listCommand;
        for (int n = 0; n < nControlObjects; ++n) {
            listWhole.prepend("Attach()");
            listWhole.append("Detach()");
        }
        return listWhole << QStringLiteral("ExportList(\"%1\", 0)").arg(strList);
    }

    /// The dated lists in a folder of the program's.
    QStringList Aside(const QString& strFolder) const
    {
        const QDir folder(program.Path(strFolder));
        QStringList listPath;
        for (const QString& strName : folder.entryList({ "studio.unsaved-*.kvtl" })) {
            listPath.append(QDir::cleanPath(folder.filePath(strName)));
        }
        return listPath;
    }

    CProgram program;
    const QString strList;
    const QString strScenario;
};

} // namespace

/// How the program ends when it is told from outside.
class CEndTest : public QObject
{
    Q_OBJECT

private slots:
    void aSignalEndsItInOrderAndTheListIsSaved_data()
    {
        QTest::addColumn<int>("nSignal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void aSignalEndsItInOrderAndTheListIsSaved()
    {
        QFETCH(int, nSignal);
        CRun run;
        QVERIFY(run.Start());

        QVERIFY(run.EndBy(nSignal));

        QCOMPARE(run.program.ExitCode(), 0);
        QCOMPARE(run.program.Errors(), QStringList());
        QVERIFY(run.List().contains("Night shift"));
        QCOMPARE(run.Aside("."), QStringList());
        QCOMPARE(run.Commands(), run.WholeRun({ "SetSelectedNodes([null])" }));
    }

    void signalsDuringAJobWaitForItsEnd()
    {
        CRun run(R"({"at": 0.55, "press": "Refresh"},)");
        QVERIFY(run.Start());
        QVERIFY(run.Commands().contains("SetBusy(true)"));
        QVERIFY(!run.Commands().contains("SetBusy(false)"));

        run.program.Send(SIGTERM);
        run.program.Send(SIGINT);
        QVERIFY(run.program.WaitForOutput("-later.png"));
        run.program.Send(SIGINT);
        QVERIFY(run.EndBy(SIGTERM));

        QCOMPARE(run.program.ExitCode(), 0);
        QVERIFY(run.Commands().contains("SetBusy(false)"));
        QVERIFY(run.List().contains("Night shift"));
    }

    void aHangupThatTheStarterIgnoresIsIgnored()
    {
        CRun run;
        run.program.SetStarter(StarterIgnoresHangup);
        QVERIFY(run.Start());

        run.program.Send(SIGHUP);
        QVERIFY(run.program.WaitForOutput("-later.png"));

        QVERIFY(run.EndBy(SIGTERM));
        QCOMPARE(run.program.ExitCode(), 0);
    }

    void whatIsAskedIsCancelledBeforeTheEnd_data()
    {
        QTest::addColumn<QByteArray>("listMark");
        QTest::addColumn<QStringList>("listCommand");

        const QStringList listStart{ "SetSelectedNodes([null])" };
        QTest::newRow("dialog") << QByteArray(R"({"at": 0.3, "press": "Add a processor"},)") << listStart;
        QTest::newRow("question") << QByteArray(R"({"at": 0.2, "select": ["Floor"]}, {"at": 0.3, "press": "Delete"},)")
                                  << listStart + QStringList{ "SetSelectedNodes([a5a6c999])" };
        QTest::newRow("menu") << QByteArray(R"({"at": 0.3, "press": "Menu"},)") << listStart;
    }

    void whatIsAskedIsCancelledBeforeTheEnd()
    {
        QFETCH(QByteArray, listMark);
        QFETCH(QStringList, listCommand);
        CRun run(listMark);
        QVERIFY(run.Start());

        QVERIFY(run.EndBy(SIGTERM));

        QCOMPARE(run.program.ExitCode(), 0);
        QCOMPARE(run.program.Errors(), QStringList());
        QCOMPARE(run.Commands(), run.WholeRun(listCommand));
        QVERIFY(run.List().contains("Night shift") && run.List().contains("Floor"));
    }

    void aListThatWasNotReadStaysAndTheNewOneIsBesideIt()
    {
        CRun run;
        const QByteArray damaged = run.List().replace("Floor", "Flaor");
        run.program.Write("studio.kvtl", damaged);
        QVERIFY(run.Start());

        QVERIFY(run.EndBy(SIGTERM));

        QCOMPARE(run.program.ExitCode(), 3);
        QCOMPARE(run.List(), damaged);
        const QStringList listAside = run.Aside(".");
        QCOMPARE(listAside.size(), 1);
        QVERIFY(CProgram::Read(listAside.constFirst()).contains("Night shift"));
        QVERIFY2(run.program.Errors().filter(listAside.constFirst()).size() > 0, qPrintable(run.program.Errors().join('\n')));
    }

    void aListInAFolderThatTakesNothingGoesToAnother()
    {
        CRun run;
        run.program.SetDisk(DiskReadOnly);
        const QByteArray before = run.List();
        QVERIFY(run.Start());

        QVERIFY(run.EndBy(SIGHUP));

        QCOMPARE(run.program.ExitCode(), 3);
        QCOMPARE(run.List(), before);
        const QStringList listAside = run.Aside("tmp");
        QCOMPARE(listAside.size(), 1);
        QVERIFY(CProgram::Read(listAside.constFirst()).contains("Night shift"));
        QVERIFY2(run.program.Errors().filter(listAside.constFirst()).size() > 0, qPrintable(run.program.Errors().join('\n')));
    }

    void anErrorOutputThatNobodyReadsCostsNothing()
    {
        CRun run;
        run.program.SetStarter(StarterReadsNoErrors);
        run.program.Write("studio.kvtl", "hello"); // which is complained about
        QVERIFY(run.Start());

        QVERIFY(run.EndBy(SIGINT));

        QCOMPARE(run.program.ExitCode(), 3);
        QCOMPARE(run.Aside(".").size(), 1);
    }
};

PTV_TEST_MAIN(CEndTest)
#include "tst_end.moc"
