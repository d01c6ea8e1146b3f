#include "Kestrel/journal/CGuardField.h"
#include "Kestrel/report/CReportAction.h"
#include "Kestrel/report/CReportSaver.h"
#include "Kestrel/report/ReportFile.h"
#include "Kestrel/report/SReport.h"
#include "TestMain.h"
#include "journal/recording/CJournalWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLibrary>
#include <QMainWindow>
#include <QMessageBox>
#include <QProcess>
#include <QStatusBar>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <random>
#include <sys/resource.h>
#include <thread>

namespace {

void WriteFile(const QString& strPath, const QByteArray& bytes)
{
    QVERIFY(QDir().mkpath(QFileInfo(strPath).path()));
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// Bytes that nothing makes smaller.
QByteArray Noise(int nBytes)
{
    std::mt19937 random(1);
    QByteArray bytes(nBytes, 0);
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random()); });
    return bytes;
}

/// A folder with a list and its journal: one file masked, one not.
class CReportScene
{
public:
    CReportScene()
    {
        WriteFile(GetPath("list.kvtl"), "the list");
        WriteFile(GetPath("journal/000001.jsonl"), "{\"kind\":\"header\",\"masked\":true}\nmasked\n");
        WriteFile(GetPath("journal/000002.jsonl"), "{\"kind\":\"header\",\"masked\":false}\nplain\n");
        report.strFile = GetPath("report.tar.gz");
        report.strListFile = GetPath("list.kvtl");
        report.strJournalFolder = GetPath("journal");
        report.picture = QImage(4, 4, QImage::Format_RGB32);
        report.picture.fill(Qt::red);
    }

    QString GetPath(const QString& strName) const
    {
        return folder.filePath(strName);
    }

    /// The names in the archive, by the system's own program.
    QStringList Names() const
    {
        QStringList listName = QString::fromUtf8(Tar({ "-tzf", report.strFile })).split('\n', Qt::SkipEmptyParts);
        listName.sort();
        return listName;
    }

    QByteArray Content(const QString& strName) const
    {
        return Tar({ "-xzOf", report.strFile, strName });
    }

    static QByteArray ReadFile(const QString& strPath)
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Of the journal in the archive, those that the program has written and that are no objects.
    QStringList BadLines() const
    {
        QStringList listBad;
        for (const QByteArray& line : Tar({ "-xzOf", report.strFile, "--wildcards", "journal/*" }).split('\n')) {
            if (!line.isEmpty() && line != "plain" && line != "masked" && !QJsonDocument::fromJson(line).isObject()) {
                listBad.append(QString::fromUtf8(line));
            }
        }
        return listBad;
    }

    QTemporaryDir folder;
    SReport report;

private:
    static QByteArray Tar(const QStringList& listArgument)
    {
        QProcess tar;
        tar.start("tar", listArgument);
        return tar.waitForFinished(nPatience) ? tar.readAllStandardOutput() : QByteArray();
    }
};

} // namespace

/// Reports as files, and the parts of the window that lead to them.
class CReportTest : public QObject
{
    Q_OBJECT

private slots:
    void aReportHoldsJournalListPictureAndVersions()
    {
        CReportScene scene;
        scene.report.versions = ReportFile::GetVersions(false);

        QCOMPARE(ReportFile::Write(scene.report), QString());

        QCOMPARE(scene.Names(),
                 (QStringList{ "journal/000001.jsonl", "journal/000002.jsonl", "list.kvtl", "report.json", "window.png" }));
        QCOMPARE(scene.Content("list.kvtl"), QByteArray("the list"));
        QVERIFY(scene.Content("journal/000002.jsonl").endsWith("plain\n"));
        QCOMPARE(QImage::fromData(scene.Content("window.png")).pixelColor(1, 1), QColor(Qt::red));
        const QJsonObject versions = QJsonDocument::fromJson(scene.Content("report.json")).object();
        QCOMPARE(versions.value("qt").toString(), QString(qVersion()));
        QVERIFY(versions.value("libraries").toArray().contains("libQt5Core.so." + QString(qVersion())));
    }

    void aMaskedReportHoldsWhatIsMaskedAndSaysWhatIsMissing()
    {
        CReportScene scene;
        scene.report.bMask = true;

        QCOMPARE(ReportFile::Write(scene.report), QString());

        QCOMPARE(scene.Names(), (QStringList{ "journal/000001.jsonl", "report.json" }));
        const QByteArray versions = scene.Content("report.json");
        for (const char* szName : { "journal/000002.jsonl", "list.kvtl", "window.png" }) {
            QVERIFY2(versions.contains(szName), szName);
        }
    }

    void aListThatIsMissingIsSaid()
    {
        CReportScene scene;
        QVERIFY(QFile::remove(scene.report.strListFile));
        QCOMPARE(ReportFile::Write(scene.report), QString());
        QVERIFY(scene.Content("report.json").contains("cannot be read"));
    }

    void aPlaceThatTakesNoFileIsAReasonAndNothingIsLeft()
    {
        CReportScene scene;
        scene.report.strFile = scene.GetPath("missing/report.tar.gz");
        QVERIFY2(ReportFile::Write(scene.report).contains("No such file"), qPrintable(ReportFile::Write(scene.report)));

        scene.report.strFile = "/dev/full/report.tar.gz";
        QVERIFY(!ReportFile::Write(scene.report).isEmpty());
    }

    void aDiskThatFillsLeavesTheReportBeforeAsItWas()
    {
        CReportScene scene;
        QCOMPARE(ReportFile::Write(scene.report), QString());
        const QByteArray before = scene.ReadFile(scene.report.strFile);
        WriteFile(scene.GetPath("list.kvtl"), Noise(200000));
        const QStringList listFile = QDir(scene.folder.path()).entryList(QDir::Files);
        {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{ 100000, RLIM_INFINITY };
            setrlimit(RLIMIT_FSIZE, &limit);
            const QString strReason = ReportFile::Write(scene.report);
            const rlimit none{ RLIM_INFINITY, RLIM_INFINITY };
            setrlimit(RLIMIT_FSIZE, &none);
            QVERIFY2(strReason.contains("File too large"), qPrintable(strReason));
        }
        QCOMPARE(scene.ReadFile(scene.report.strFile), before);
        QCOMPARE(QDir(scene.folder.path()).entryList(QDir::Files), listFile);
    }

    void whatItIsMadeOfIsNotOverwritten()
    {
        CReportScene scene;
        for (const QString& strName : { QString("list.kvtl"), QString("journal/../journal/000002.jsonl") }) {
            scene.report.strFile = scene.GetPath(strName);
            const QByteArray before = scene.ReadFile(scene.report.strFile);
            QVERIFY(!ReportFile::Write(scene.report).isEmpty());
            QCOMPARE(scene.ReadFile(scene.report.strFile), before);
        }
    }

    void inTheJournalsFolderItIsNoPartOfTheNext()
    {
        CReportScene scene;
        scene.report.strFile = scene.GetPath("journal/report.tar.gz");
        QCOMPARE(ReportFile::Write(scene.report), QString());
        QCOMPARE(ReportFile::Write(scene.report), QString());
        QCOMPARE(scene.Names().size(), 5);
        QVERIFY(!scene.Names().join(' ').contains("report.tar"));
    }

    void aLineThatIsBeingWrittenIsNotInIt()
    {
        CReportScene scene;
        WriteFile(scene.GetPath("journal/000002.jsonl"), "{\"kind\":\"header\",\"masked\":false}\nplain\n{\"kin");
        QCOMPARE(ReportFile::Write(scene.report), QString());
        QVERIFY(scene.Content("journal/000002.jsonl").endsWith("plain\n"));
    }

    void everyLineIsAnObjectWhileTheRingTurns()
    {
        CReportScene scene;
        SRecordingLimits limits;
        limits.nFiles = 3;
        limits.nFileBytes = 2000;
        CJournalWriter writer(limits);
        writer.Open(scene.report.strJournalFolder, {}, false);
        std::atomic<bool> bEnd{ false };
        std::thread rain([&] {
            while (!bEnd) {
                SJournalRecord record;
                record.line = LineNote;
                writer.Push(std::move(record));
                writer.Flush(std::chrono::milliseconds(nPatience));
            }
        });
        QStringList listBad;
        for (int n = 0; n < 20; ++n) {
            const QString strReason = ReportFile::Write(scene.report);
            listBad += strReason.isEmpty() ? scene.BadLines() : QStringList(strReason);
        }
        bEnd = true;
        rain.join();
        QCOMPARE(listBad, QStringList());
    }

    void withTheMaskALibraryOfOnesOwnIsNotNamed()
    {
        const CReportScene scene;
        const QString strOwn = scene.GetPath("libofsecret.so");
        QVERIFY(QFile::copy(OWN_LIBRARY, strOwn));
        QLibrary library(strOwn);
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(ReportFile::GetVersions(false).value("libraries").toArray().contains("libofsecret.so"));
        const QJsonArray masked = ReportFile::GetVersions(true).value("libraries").toArray();
        QVERIFY(!masked.contains("libofsecret.so"));
        QVERIFY(masked.contains("libQt5Core.so." + QString(qVersion())));
        library.unload();
    }

    void theWindowSavesItOnAnotherThreadAndSaysWhere()
    {
        CReportScene scene;
        QMainWindow window;
        CJournalWriter writer;
        writer.Open(scene.report.strJournalFolder, {}, false);
        CReportSaver saver(window, writer, false);
        const QSignalSpy finished(&saver, &CReportSaver::Finished);

        saver.Save(scene.report.strFile, scene.report.strListFile, scene.report.strJournalFolder);
        QCOMPARE(finished.size(), 0);

        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(finished[0][1].toString(), QString());
        QVERIFY(window.statusBar()->currentMessage().contains(scene.report.strFile));
        QVERIFY(scene.Names().contains("window.png"));
        QVERIFY(scene.Content("report.json").contains("\"journalLost\": 0"));
    }

    void aFailureIsShownWithItsReason()
    {
        CReportScene scene;
        QMainWindow window;
        CJournalWriter writer;
        writer.Open(scene.report.strJournalFolder, {}, false);
        CReportSaver saver(window, writer, false);
        window.show();

        saver.Save("/no/such/report.tar.gz", scene.report.strListFile, scene.report.strJournalFolder);

        QTRY_VERIFY(window.findChild<QMessageBox*>());
        auto* pBox = window.findChild<QMessageBox*>();
        QVERIFY2(pBox->text().contains("/no/such/report.tar.gz: No such file"), qPrintable(pBox->text()));
        pBox->close();
        QTRY_VERIFY(!window.findChild<QMessageBox*>());
    }

    void theFieldShowsCountAndLastOnceThereIsOne()
    {
        CGuardField field(nullptr);
        QVERIFY(!field.isVisible());
        SGuiHold hold;
        hold.strOperation = "PrcListControl.ImportList";
        hold.nMilliseconds = 72;
        field.SetState(3, hold);
        QVERIFY(field.isVisible());
        QCOMPARE(field.text(), QString("Held up 3×, last for 72 ms by PrcListControl.ImportList"));
        QCOMPARE(field.toolTip(), field.text());
    }

    void theEntryFollowsTheLanguageOfItsWindow()
    {
        QMainWindow window;
        CReportAction action(&window);
        const QString strText = action.text();
        action.setText("old");
        QEvent event(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&window, &event);
        QCOMPARE(action.text(), strText);
    }
};

PTV_TEST_MAIN(CReportTest)
#include "tst_report.moc"
