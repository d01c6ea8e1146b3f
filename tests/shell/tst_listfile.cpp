#include "CDialogDriver.h"
#include "CFailingScan.h"
#include "CMapTranslator.h"
#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QToolButton>

namespace {

const char szQuestion[] = "Overwrite confirmation: This operation will overwrite the processor list.\nContinue?";
const char szImported[] = "Import: Import sucessfully.";
const char szExported[] = "Export: Export sucessfully.";

void OneProcessor(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha").Expanded(false) });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

/// A panel that shows its one processor, with an empty journal.
class CSettledPanel : public CPanelFixture
{
public:
    CSettledPanel() : CPanelFixture(OneProcessor)
    {
        Refresh();
        control.ClearJournal();
    }
};

} // namespace

/// The commands that read and write list files, from the press to the last word.
class CListFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pDir.reset(new QTemporaryDir);
        QVERIFY(pDir->isValid());
    }

    void importIntoAnEmptyListAsksNothing()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList({ "Import...", szImported }));
    }

    void importOverAListAsksFirst_data()
    {
        QTest::addColumn<bool>("group");
        QTest::addColumn<bool>("processor");
        QTest::newRow("one empty group") << true << false;
        QTest::newRow("one processor") << false << true;
        QTest::newRow("both") << true << true;
    }

    void importOverAListAsksFirst()
    {
        QFETCH(bool, group);
        QFETCH(bool, processor);
        CPanelFixture panel([&](SControlAnswers& answers) {
            if (group) {
                answers.nodeDiscovered.listGroup.append(Group("Stage"));
            }
            if (processor) {
                answers.nodeDiscovered.listProcessor.append(Processor("alpha"));
            }
        });
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList({ szQuestion, "Import...", szImported }));
    }

    void theQuestionCountsTheTopLevelOfTheLibrarysList()
    {
        // The store knows nothing yet: the library is asked.
        CPanelFixture panel(OneProcessor);
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer("ButtonNo");

        TriggerImport(panel);

        QCOMPARE(panel.control.CallsWithThread(), QStringList("gui: g_pPrcListControl.GetDiscoveredTree()"));
        QCOMPARE(driver.Shown(), QStringList(szQuestion));
    }

    void anyAnswerButYesEndsTheImport_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("no") << "ButtonNo";
        QTest::newRow("cross") << "DialogClose";
        QTest::newRow("Escape") << "key Escape";
    }

    void anyAnswerButYesEndsTheImport()
    {
        QFETCH(QString, button);
        CPanelFixture panel(OneProcessor);
        CDialogDriver driver;
        driver.Answer(button);

        TriggerImport(panel);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList(szQuestion));
        QCOMPARE(panel.control.Commands(), QStringList());
    }

    void noIsTheDefaultAnswer()
    {
        CPanelFixture panel(OneProcessor);
        CDialogDriver driver;
        driver.Answer([](QDialog* pDialog) {
            QVERIFY(pDialog->findChild<QPushButton*>("ButtonYes"));
            QCOMPARE(pDialog->findChildren<QPushButton*>().size(), 2);
            QVERIFY(pDialog->findChild<QPushButton*>("ButtonNo")->isDefault());
            QTest::keyClick(pDialog, Qt::Key_Return);
        });

        TriggerImport(panel);

        QVERIFY(driver.IsDone());
        QCOMPARE(panel.control.Commands(), QStringList());
    }

    void theImportDialogLooksForListFiles()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            auto* pFileDialog = qobject_cast<QFileDialog*>(pDialog);
            QVERIFY(pFileDialog);
            QCOMPARE(pFileDialog->parentWidget(), panel.View());
            QCOMPARE(pFileDialog->nameFilters(), QStringList("*.kvtl"));
            QCOMPARE(pFileDialog->acceptMode(), QFileDialog::AcceptOpen);
            QCOMPARE(pFileDialog->fileMode(), QFileDialog::AnyFile);
            QCOMPARE(pFileDialog->defaultSuffix(), QString());
            pFileDialog->reject();
        });

        TriggerImport(panel);

        QCOMPARE(driver.Shown(), QStringList("Import..."));
    }

    void aCancelledImportDialogChangesNothing_data()
    {
        QTest::addColumn<bool>("list");
        QTest::newRow("after a yes") << true;
        QTest::newRow("empty list") << false;
    }

    void aCancelledImportDialogChangesNothing()
    {
        QFETCH(bool, list);
        CPanelFixture panel(list ? CPanelFixture::FnAnswers(OneProcessor) : CPanelFixture::FnAnswers());
        CDialogDriver driver;
        if (list) {
            driver.Answer("ButtonYes");
        }
        driver.Answer("key Escape");

        TriggerImport(panel);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown().last(), QStringLiteral("Import..."));
        QCOMPARE(panel.control.Commands(), QStringList());
    }

    void anImportRunsItsScanOnThePool()
    {
        CPanelFixture panel;
        panel.control.ClearJournal();
        CDialogDriver driver;
        const QString strPath = CreateFile("site.kvtl");
        driver.AnswerByFile(strPath);
        driver.Answer("ButtonOk");

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        QCOMPARE(
            panel.control.CallsWithThread(),
            QStringList({ "gui: g_pPrcListControl.GetDiscoveredTree()", "gui: g_pPrcListControl.ImportList(\"" + strPath + "\")",
                          "gui: g_pRuntimeControl.SetBusy(true)", "pool: g_pRuntimeControl.SetSelectedNodes([{null}])",
                          "pool: g_pPrcBasicControl.RefreshProcessors()", "pool: g_pRuntimeControl.SetBusy(false)" }));
    }

    void theImportIsAnnouncedBeforeTheBusyStateEnds()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");
        QStringList listWhenTold;
        bool bOnPool = false;
        connect(
            panel.View(), &CProcessorTreeView::ImportFinished, this,
            [&] {
                listWhenTold = panel.control.Commands();
                bOnPool = QThread::currentThread() != qApp->thread();
            },
            Qt::DirectConnection);

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        QVERIFY(bOnPool);
        QCOMPARE(listWhenTold.last(), QStringLiteral("g_pPrcBasicControl.RefreshProcessors()"));
        QCOMPARE(panel.control.Commands().last(), QStringLiteral("g_pRuntimeControl.SetBusy(false)"));
    }

    void theSuccessIsToldAndNothingElseDone()
    {
        CPanelFixture panel(OneProcessor);
        panel.Refresh();
        const QString strBefore = TreeText(panel.Tree());
        QSignalSpy told(panel.View(), &CProcessorTreeView::NodeSelectChanged);
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer([](QDialog* pDialog) {
            QCOMPARE(pDialog->findChildren<QPushButton*>().size(), 1);
            QVERIFY(pDialog->findChild<QPushButton*>("ButtonOk")->isDefault());
            QTest::keyClick(pDialog, Qt::Key_Return);
        });

        emit panel.View()->ImportFinished();

        QCOMPARE(driver.Shown(), QStringList(szImported));
        QCOMPARE(TreeText(panel.Tree()), strBefore);
        QCOMPARE(panel.control.Calls(), QStringList());
        QCOMPARE(told.count(), 0);
    }

    void theWordOfASuccessGoesAwayHoweverItIsAnswered_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("button");
        QTest::newRow("import, OK") << 6 << szImported << "ButtonOk";
        QTest::newRow("import, cross") << 6 << szImported << "DialogClose";
        QTest::newRow("import, Escape") << 6 << szImported << "key Escape";
        QTest::newRow("export, OK") << 7 << szExported << "ButtonOk";
        QTest::newRow("export, cross") << 7 << szExported << "DialogClose";
        QTest::newRow("export, Escape") << 7 << szExported << "key Escape";
    }

    void theWordOfASuccessGoesAwayHoweverItIsAnswered()
    {
        QFETCH(int, id);
        QFETCH(QString, message);
        QFETCH(QString, button);
        CPanelFixture panel;
        CDialogDriver driver;
        driver.AnswerByFile(id == 6 ? CreateFile("site.kvtl") : pDir->filePath("site.kvtl"));
        driver.Answer(button);

        panel.View()->DealToolBarButton(id);
        QVERIFY(WaitForJob(panel));

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown().last(), message);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(panel.control.CallCount(id == 6 ? "ImportList" : "ExportList"), 1);
    }

    void anImportThatFailsIsToldByItsReason_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown") << 1 << QString();
        QTest::newRow("invalid file") << 2 << "Cannot import file: The currently imported file is invalid.";
        QTest::newRow("overwriting failed") << 3 << "Import: Overwrite failed.";
        QTest::newRow("copying failed") << 4 << "Import: Copy failed.";
        QTest::newRow("over the limit") << 5 << "Cannot import file: The number of processors involved exceeds the limit.";
        QTest::newRow("six") << 6 << QString();
        QTest::newRow("negative") << -1 << QString();
    }

    void anImportThatFailsIsToldByItsReason()
    {
        QFETCH(int, result);
        QFETCH(QString, message);
        CPanelFixture panel([&](SControlAnswers& answers) { answers.nImportResult = result; });
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        if (!message.isEmpty()) {
            driver.Answer("ButtonOk");
        }

        TriggerImport(panel);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), message.isEmpty() ? QStringList("Import...") : QStringList({ "Import...", message }));
    }

    void anImportThatFailsStartsNothing()
    {
        CPanelFixture panel([](SControlAnswers& answers) {
            OneProcessor(answers);
            answers.nImportResult = 5;
        });
        panel.Refresh();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        QCOMPARE(panel.control.CallCount(QStringLiteral("ImportList")), 1);
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 0);
        QCOMPARE(panel.control.CallCount(QStringLiteral("RefreshProcessors")), 0);
        QVERIFY(TreeText(panel.Tree()).contains(QStringLiteral("processor alpha")));
    }

    void aScanThatThrowsIsNotToldAndStaysBusy()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        {
            const CFailingScan failing;
            TriggerImport(panel);
            QVERIFY(WaitForJob(panel));
        }

        QCOMPARE(driver.Shown(), QStringList("Import..."));
        QCOMPARE(panel.control.Commands().last(), QStringLiteral("g_pRuntimeControl.SetSelectedNodes([{null}])"));
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 1);
    }

    void afterAScanThatThrewTheNextImportIsToldAndEnds()
    {
        CPanelFixture panel;
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        {
            const CFailingScan failing;
            TriggerImport(panel);
            QVERIFY(WaitForJob(panel));
        }
        panel.control.ClearJournal();
        driver.AnswerByFile(CreateFile("other.kvtl"));
        driver.Answer("ButtonOk");

        TriggerImport(panel);
        QVERIFY(WaitForJob(panel));

        // The busy state that the first job left is ended by the second one.
        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList({ "Import...", "Import...", szImported }));
        QCOMPARE(panel.control.Commands().mid(1, 1), QStringList("g_pRuntimeControl.SetBusy(true)"));
        QCOMPARE(panel.control.Commands().last(), QStringLiteral("g_pRuntimeControl.SetBusy(false)"));
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 2);
    }

    void importLeavesRefreshUsable()
    {
        CPanelFixture panel;
        panel.control.Hold(QStringLiteral("RefreshProcessors"));
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");
        TriggerImport(panel);
        QVERIFY(panel.control.WaitForHeld(QStringLiteral("RefreshProcessors")));

        panel.Click(panel.RefreshButton());

        QVERIFY(panel.control.WaitForCall(QStringLiteral("RefreshProcessors"), 2));
        panel.control.Release(QStringLiteral("RefreshProcessors"));
        QVERIFY(WaitForJob(panel));
        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(panel.control.CallCount(QStringLiteral("SetBusy")), 4);
    }

    void importWorksInBothPanes()
    {
        CPanelFixture panel([](SControlAnswers& answers) { answers.bSimulatorPane = true; });
        panel.Refresh();
        QVERIFY(!panel.MenuAction("Import")->isEnabled());
        CDialogDriver driver;
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");

        // The tool bar does not offer it here; the command itself does not ask for the pane.
        panel.View()->DealToolBarButton(6);
        QVERIFY(WaitForJob(panel));

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(panel.control.CallCount(QStringLiteral("ImportList")), 1);
    }

    void theExportDialogProposesAName()
    {
        CPanelFixture panel(OneProcessor);
        panel.Refresh();
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            auto* pFileDialog = qobject_cast<QFileDialog*>(pDialog);
            QVERIFY(pFileDialog);
            QCOMPARE(pFileDialog->parentWidget(), panel.View());
            QCOMPARE(pFileDialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(pFileDialog->nameFilters(), QStringList("*.kvtl"));
            QCOMPARE(pFileDialog->defaultSuffix(), QString());
            QCOMPARE(pFileDialog->findChild<QLineEdit*>("fileNameEdit")->text(), QStringLiteral("New.kvtl"));
            pFileDialog->reject();
        });

        panel.MenuAction("Export")->trigger();

        QCOMPARE(driver.Shown(), QStringList("Save..."));
    }

    void theExportGoesToTheFileChosen()
    {
        CSettledPanel panel;
        const QString strPath = pDir->filePath(QStringLiteral("site.kvtl"));
        CDialogDriver driver;
        driver.AnswerByFile(strPath);
        driver.Answer("ButtonOk");

        panel.MenuAction("Export")->trigger();

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList({ "Save...", szExported }));
        QCOMPARE(panel.control.CallsWithThread(), QStringList("gui: g_pPrcListControl.ExportList(\"" + strPath + "\", 0)"));
    }

    void aNameWithoutExtensionGoesAsTyped()
    {
        CSettledPanel panel;
        const QString strPath = pDir->filePath(QStringLiteral("site"));
        CDialogDriver driver;
        driver.AnswerByFile(strPath);
        driver.Answer("ButtonOk");

        panel.MenuAction("Export")->trigger();

        QCOMPARE(panel.control.Commands(), QStringList("g_pPrcListControl.ExportList(\"" + strPath + "\", 0)"));
    }

    void anExportThatFailsIsSilent_data()
    {
        QTest::addColumn<int>("result");
        QTest::newRow("1") << 1;
        QTest::newRow("2") << 2;
        QTest::newRow("negative") << -1;
    }

    void anExportThatFailsIsSilent()
    {
        QFETCH(int, result);
        CPanelFixture panel([&](SControlAnswers& answers) {
            OneProcessor(answers);
            answers.nExportResult = result;
            answers.strListFilePath = pDir->filePath(QStringLiteral("own.kvtl"));
        });
        panel.Refresh();
        const QString strPath = CreateFile("site.kvtl");
        CDialogDriver driver;
        driver.AnswerByFile(pDir->filePath(QStringLiteral("other.kvtl")));

        panel.MenuAction("Export")->trigger();

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList("Save..."));
        QVERIFY(QFile::exists(strPath));
    }

    void aCancelledExportWritesNothing_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("closed window") << "window closed";
        QTest::newRow("Escape") << "key Escape";
    }

    void aCancelledExportWritesNothing()
    {
        QFETCH(QString, how);
        CSettledPanel panel;
        CDialogDriver driver;
        driver.Answer(how);

        panel.MenuAction("Export")->trigger();

        QVERIFY(driver.IsDone());
        QCOMPARE(panel.control.Commands(), QStringList());
    }

    void fileDialogsAreReleased_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("accept");
        QTest::newRow("import, chosen") << 6 << true;
        QTest::newRow("import, cancelled") << 6 << false;
        QTest::newRow("export, chosen") << 7 << true;
        QTest::newRow("export, cancelled") << 7 << false;
    }

    void fileDialogsAreReleased()
    {
        QFETCH(int, id);
        QFETCH(bool, accept);
        CPanelFixture panel([](SControlAnswers& answers) {
            answers.nImportResult = 1;
            answers.nExportResult = 2;
        });
        QPointer<QDialog> pSeen;
        CDialogDriver driver;
        const QString strPath = id == 6 ? CreateFile("site.kvtl") : pDir->filePath(QStringLiteral("new.kvtl"));
        driver.Answer([&](QDialog* pDialog) {
            pSeen = pDialog;
            pDialog->findChild<QLineEdit*>("fileNameEdit")->setText(strPath);
            QTest::keyClick(pDialog, accept ? Qt::Key_Return : Qt::Key_Escape);
        });

        panel.View()->DealToolBarButton(id);
        QVERIFY(driver.IsDone());

        QTRY_VERIFY(pSeen.isNull());
        QCOMPARE(panel.control.Commands().size(), accept ? 1 : 0);
    }

    void theWordsAreTranslated()
    {
        const CMapTranslator german(
            { { "CProcessorTreeView|Overwrite confirmation", "Überschreiben" },
              { "CProcessorTreeView|This operation will overwrite the processor list.\nContinue?", "Weiter?" },
              { "CProcessorTreeView|Import...", "Einlesen..." },
              { "CProcessorTreeView|Cannot import file", "Nicht lesbar" },
              { "CProcessorTreeView|The currently imported file is invalid.", "Ungültig." } });
        CPanelFixture panel([](SControlAnswers& answers) {
            OneProcessor(answers);
            answers.nImportResult = 2;
        });
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        driver.AnswerByFile(CreateFile("site.kvtl"));
        driver.Answer("ButtonOk");

        panel.View()->DealToolBarButton(6);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList({ "Überschreiben: Weiter?", "Einlesen...", "Nicht lesbar: Ungültig." }));
    }

    void theOutcomeIsToldInTheUsersLanguage_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("imported") << 6 << 0 << QStringList({ "Einlesen...", "Einlesen: Eingelesen." });
        QTest::newRow("not overwritten") << 6 << 3 << QStringList({ "Einlesen...", "Einlesen: Nicht ersetzt." });
        QTest::newRow("not copied") << 6 << 4 << QStringList({ "Einlesen...", "Einlesen: Nicht kopiert." });
        QTest::newRow("over the limit") << 6 << 5 << QStringList({ "Einlesen...", "Nicht lesbar: Zu viele." });
        QTest::newRow("exported") << 7 << 0 << QStringList({ "Sichern...", "Ausgabe: Gesichert." });
    }

    void theOutcomeIsToldInTheUsersLanguage()
    {
        QFETCH(int, id);
        QFETCH(int, result);
        const CMapTranslator german({ { "CProcessorTreeView|Import...", "Einlesen..." },
                                      { "CProcessorTreeView|Import", "Einlesen" },
                                      { "CProcessorTreeView|Import sucessfully.", "Eingelesen." },
                                      { "CProcessorTreeView|Overwrite failed.", "Nicht ersetzt." },
                                      { "CProcessorTreeView|Copy failed.", "Nicht kopiert." },
                                      { "CProcessorTreeView|Cannot import file", "Nicht lesbar" },
                                      { "CProcessorTreeView|The number of processors involved exceeds the limit.", "Zu viele." },
                                      { "CProcessorTreeView|Save...", "Sichern..." },
                                      { "CProcessorTreeView|Export", "Ausgabe" },
                                      { "CProcessorTreeView|Export sucessfully.", "Gesichert." } });
        CPanelFixture panel([&](SControlAnswers& answers) { answers.nImportResult = result; });
        CDialogDriver driver;
        driver.AnswerByFile(id == 6 ? CreateFile("site.kvtl") : pDir->filePath("site.kvtl"));
        driver.Answer("ButtonOk");

        panel.View()->DealToolBarButton(id);
        QVERIFY(WaitForJob(panel));

        QTRY_VERIFY(driver.IsDone());
        QTEST(driver.Shown(), "shown");
    }

private:
    QString CreateFile(const QString& strName) const
    {
        QFile file(pDir->filePath(strName));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }

    void TriggerImport(const CPanelFixture& panel) const
    {
        panel.MenuAction("Import")->trigger();
    }

    /// The job's last step is past, and what it announced has been told.
    static bool WaitForJob(const CPanelFixture&)
    {
        const bool bDone = QThreadPool::globalInstance()->waitForDone(nPatience);
        QCoreApplication::processEvents();
        return bDone;
    }

    QScopedPointer<QTemporaryDir> pDir;
};

PTV_TEST_MAIN(CListFileTest)
#include "tst_listfile.moc"
