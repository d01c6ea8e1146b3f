#include "CProgram.h"
#include "CRecorderDouble.h"
#include "Kestrel/CCommandLine.h"
#include "Kestrel/journal/CCrashFlush.h"
#include "Kestrel/journal/CRunJournal.h"
#include "TestMain.h"
#include "journal/recording/CJournalWriter.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QList<QJsonObject> Lines(const QByteArray& file)
{
    QList<QJsonObject> listLine;
    for (const QByteArray& bytes : file.split('\n').mid(0, file.count('\n'))) {
        listLine.append(QJsonDocument::fromJson(bytes).object());
    }
    return listLine;
}

QStringList Operations(const QList<QJsonObject>& listLine)
{
    QStringList listOperation;
    for (const QJsonObject& line : listLine) {
        listOperation.append(line.value("operation").toString());
    }
    return listOperation;
}

/// All names of groups, processors and projects in a list file.
QSet<QString> NamesIn(const QByteArray& list)
{
    QSet<QString> setName;
    const QRegularExpression expression("\"(?:name|project)\"\\s*:\\s*\"([^\"]{4,})\"");
    auto match = expression.globalMatch(QString::fromUtf8(list));
    while (match.hasNext()) {
        setName.insert(match.next().captured(1));
    }
    setName.remove("All processors");
    return setName;
}

/// A run on a list of the examples, that takes one picture and ends.
class CShortRun
{
public:
    bool Run(const QStringList& listMore = {})
    {
        return program.Run(QStringList{ "--list", strList, "--shot", program.Path("a.png"), "--at", "0.5" } + listMore)
            && program.ExitCode() == 0;
    }

    QByteArray ReadJournal(int nFile) const
    {
        return CProgram::Read(QString("%1.journal/00000%2.jsonl").arg(strList).arg(nFile));
    }

    CProgram program;
    QString strList = program.CopyExample("studio.kvtl");
};

/// A run on a list of the examples that goes on until it is ended, and has taken a picture.
class CLongRun : public CShortRun
{
public:
    bool Start()
    {
        const QByteArray scenario = R"({"steps": [], "ui": [{"at": 0.3, "shot": "up"}, {"at": 300, "shot": "never"}]})";
        program.Start({ "--list", strList, "--scenario", program.Write("a.json", scenario), "--shots", program.Path("tmp") });
        return program.WaitForOutput("-up.png");
    }
};

int CountHeaders(const QList<QJsonObject>& listLine)
{
    return static_cast<int>(std::count_if(listLine.begin(), listLine.end(), [](const QJsonObject& line) {
        return line.value("kind").toString() == QString("header");
    }));
}

} // namespace

/// The journal that each run of the program leaves beside its list.
class CRunJournalTest : public QObject
{
    Q_OBJECT

private slots:
    void aRunIsThereFromItsHeaderToItsLastCall()
    {
        CShortRun run;
        QVERIFY(run.Run({ "--lang", "de" }));

        const QList<QJsonObject> listLine = Lines(run.ReadJournal(1));
        QVERIFY(listLine.size() > 10);
        const QJsonObject header = listLine.constFirst();
        QCOMPARE(header.value("kind").toString(), QString("header"));
        QCOMPARE(header.value("list").toString(), run.strList);
        QCOMPARE(header.value("language").toString(), QString("de"));
        QVERIFY(header.value("arguments").toArray().contains(run.strList));
        for (const char* szKey : { "version", "date", "zone", "run", "qt", "system" }) {
            QVERIFY2(!header.value(szKey).toString().isEmpty(), szKey);
        }
        QCOMPARE(listLine.constLast().value("kind").toString(), QString("end"));
        const QStringList listOperation = Operations(listLine);
        for (const char* szOperation : { "Attach", "GetDiscoveredTree", "screen", "ExportList", "Detach" }) {
            QVERIFY2(listOperation.contains(szOperation), szOperation);
        }
    }

    void theRunBeforeIsLeftAsItWas()
    {
        CShortRun run;
        QVERIFY(run.Run());
        const QByteArray first = run.ReadJournal(1);
        QVERIFY(run.Run());
        QCOMPARE(run.ReadJournal(1), first);
        QVERIFY(Lines(run.ReadJournal(2)).constFirst().value("run") != Lines(first).constFirst().value("run"));
    }

    void aSignalEndsItWithItsLastLine_data()
    {
        QTest::addColumn<int>("nSignal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void aSignalEndsItWithItsLastLine()
    {
        QFETCH(int, nSignal);
        CLongRun run;
        QVERIFY(run.Start());
        run.program.Send(nSignal);
        QVERIFY(run.program.WaitForEnd());

        const QList<QJsonObject> listLine = Lines(run.ReadJournal(1));
        QVERIFY(listLine.size() > 10);
        QCOMPARE(listLine.constLast().value("kind").toString(), QString("end"));
        QCOMPARE(Operations(listLine).count("Detach"), Operations(listLine).count("Attach"));
        const QStringList listUser = Operations(listLine).filter(QRegularExpression("^(unattended end|close|save)$"));
        QCOMPARE(listUser, QStringList({ "unattended end", "close", "save" }));
        const auto isSave = [](const QJsonObject& line) { return line.value("operation") == "save"; };
        const QJsonObject save = *std::find_if(listLine.begin(), listLine.end(), isSave);
        QVERIFY(save.value("saved").toBool());
        QVERIFY(!save.value("asked").toBool());
        QCOMPARE(save.value("reason").toString(), QString());
    }

    void whatKillsItLeavesWholeLines()
    {
        CLongRun run;
        QVERIFY(run.Start());
        run.program.Send(SIGKILL);
        QVERIFY(run.program.WaitForEnd());
        const QByteArray file = run.ReadJournal(1);
        QVERIFY(file.endsWith('\n') && Lines(file).size() > 10);
        QVERIFY(!Lines(file).contains(QJsonObject()));
    }

    void twoRunsOnOneListHaveAFileEach()
    {
        CLongRun run;
        QVERIFY(run.Start());
        CProgram other;
        QVERIFY(other.Run({ "--list", run.strList, "--shot", other.Path("a.png"), "--at", "0.2" }));
        run.program.Send(SIGTERM);
        QVERIFY(run.program.WaitForEnd());

        QSet<QString> setRun;
        for (const int nFile : { 1, 2 }) {
            const QList<QJsonObject> listLine = Lines(run.ReadJournal(nFile));
            QCOMPARE(CountHeaders(listLine), 1);
            QCOMPARE(listLine.constLast().value("kind").toString(), QString("end"));
            setRun.insert(listLine.constFirst().value("run").toString());
        }
        QCOMPARE(setRun.size(), 2);
    }

    void withTheMaskNoNameAndNoPathIsInIt()
    {
        CShortRun run;
        const QSet<QString> setName = NamesIn(CProgram::Read(run.strList));
        QVERIFY(setName.size() > 10);
        QVERIFY(run.Run());
        QVERIFY(run.Run({ "--mask-journal" }));

        const QString strPlain = QString::fromUtf8(run.ReadJournal(1));
        const QString strMasked = QString::fromUtf8(run.ReadJournal(2));

        for (const QString& strName : setName) {
            QVERIFY2(strPlain.contains('"' + strName + '"'), qPrintable(strName));
            QVERIFY2(!strMasked.contains(strName), qPrintable(strName));
        }
        QVERIFY(strPlain.contains("192.168.") && !strMasked.contains("192.168."));
        QVERIFY(!strMasked.contains(QFileInfo(run.strList).path()) && !strMasked.contains("studio"));
    }

    void withTheMaskTheHeaderHasTheOptionsAlone()
    {
        CShortRun run;
        QVERIFY(run.Run({ "--mask-journal", "-theme=dark" }));
        const QJsonArray arguments = Lines(run.ReadJournal(1)).constFirst().value("arguments").toArray();
        QCOMPARE(arguments, (QJsonArray{ "--list", "--shot", "--at", "--mask-journal", "--theme" }));
        const CCommandLine commandLine({ "kestrel", "--list", "-secret.kvtl" });
        QCOMPARE(commandLine.GetOptions().listName, QStringList{ "--list" });
    }

    void aRunWhoseFolderTakesNoFileGoesOnAndSaysSo()
    {
        CShortRun run;
        QFile file(run.strList + ".journal");
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(run.Run());
        const QStringList listSaid = run.program.Errors().filter("The journal is not being written.");
        QCOMPARE(listSaid.size(), 1);
        QVERIFY2(listSaid[0].contains(file.fileName()), qPrintable(listSaid[0]));
    }

    void aLibraryWithoutAListFileHasItsJournalAmongTheProgramsData()
    {
        QVERIFY(QDir::isAbsolutePath(CRunJournal::GetFolder(QString())));
        QVERIFY(CRunJournal::GetFolder(QString()).endsWith("/kestrel.journal"));
    }

    void whatWaitsIsWrittenWhenTheProgramDies_data()
    {
        QTest::addColumn<int>("nSignal");
        QTest::newRow("abort") << SIGABRT;
        QTest::newRow("a fault in the code") << SIGSEGV;
        QTest::newRow("a user who wants to see where it hangs") << SIGQUIT;
    }

    void whatWaitsIsWrittenWhenTheProgramDies()
    {
        QFETCH(int, nSignal);
        const QTemporaryDir folder;
        QCOMPARE(RunChild(folder, [nSignal] { raise(nSignal); }), nSignal);
        const QList<QJsonObject> listLine = Lines(CProgram::Read(folder.filePath("journal/000001.jsonl")));
        QCOMPARE(listLine.size(), 1 + nNotes);
        QCOMPARE(listLine.constLast().value("number").toInt(), nNotes - 1);
    }

    void whatWaitsIsWrittenWhenTheStackOverflows()
    {
        const QTemporaryDir folder;
        QCOMPARE(RunChild(folder, [] { Overflow(1); }), SIGSEGV);
        QCOMPARE(Lines(CProgram::Read(folder.filePath("journal/000001.jsonl"))).size(), 1 + nNotes);
    }

    void whatWaitsIsWrittenWhenSomebodyExits()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("The leak check at the exit knows nothing of the threads that a fork leaves behind.");
#endif
        const QTemporaryDir folder;
        QCOMPARE(RunChild(folder, [] { std::exit(0); }), 0); // NOLINT(concurrency-mt-unsafe)
        QCOMPARE(Lines(CProgram::Read(folder.filePath("journal/000001.jsonl"))).size(), 1 + nNotes);
    }

private:
    static constexpr int nNotes = 300;

    static int Overflow(int nDepth)
    {
        volatile int nKept = nDepth; // or the compiler makes a loop of it
        return nDepth == 0 ? 0 : Overflow(nDepth + 1) + nKept;
    }

    /// A child that records and then comes to its end by fnEnd: the signal that ended it, 0 for none.
    static int RunChild(const QTemporaryDir& folder, const std::function<void()>& fnEnd)
    {
        const pid_t nChild = fork();
        if (nChild == 0) {
            Die(folder.filePath("journal"), fnEnd);
        }
        int nStatus = 0;
        return waitpid(nChild, &nStatus, 0) == nChild && WIFSIGNALED(nStatus) ? WTERMSIG(nStatus) : 0;
    }

    [[noreturn]] static void Die(const QString& strFolder, const std::function<void()>& fnEnd)
    {
        for (const int nSignal : { SIGABRT, SIGSEGV, SIGQUIT }) {
            std::signal(nSignal, SIG_DFL); // the test program's own handler would end the child otherwise
        }
        CJournalWriter writer;
        writer.Open(strFolder, {}, false);
        const CCrashFlush flush(writer);
        for (int n = 0; n < nNotes; ++n) {
            SJournalRecord record;
            record.line = LineNote;
            record.vecField = { { "number", qint64(n) } };
            writer.Push(std::move(record));
        }
        fnEnd();
        _exit(0);
    }
};

PTV_TEST_MAIN_CORE(CRunJournalTest)
#include "tst_runjournal.moc"
