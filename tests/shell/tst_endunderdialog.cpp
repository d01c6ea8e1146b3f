#include "CDialogDriver.h"
#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/EnToolBarButton.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QToolButton>

namespace {

void OneProcessor(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha") });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

void OneGroup(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({ Group("Stage", { Processor("alpha") }) });
    answers.vecDiscoveredSelection = { GroupId("Stage") };
}

void NoProcessor(SControlAnswers& answers)
{
    answers.nImportResult = 2;
}

void SimulatorPane(SControlAnswers& answers)
{
    answers.bSimulatorPane = true;
}

} // namespace

Q_DECLARE_METATYPE(CPanelFixture::FnAnswers)

/// A panel that the host ends while one of its modal dialogs is open.
class CEndUnderDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void theOpenDialogGoesWithThePanel_data()
    {
        QTest::addColumn<CPanelFixture::FnAnswers>("fnAnswers");
        QTest::addColumn<int>("nCommand");
        QTest::addColumn<QString>("strTitle");

        QTest::newRow("delete question") << CPanelFixture::FnAnswers(OneProcessor) << int(ToolBarDelete) << "Delete processors";
        QTest::newRow("choice of what to delete") << CPanelFixture::FnAnswers(OneGroup) << int(ToolBarDelete) << "Delete";
        QTest::newRow("overwrite question") << CPanelFixture::FnAnswers(OneProcessor) << int(ToolBarImport)
                                            << "Overwrite confirmation";
        QTest::newRow("file to import") << CPanelFixture::FnAnswers(NoProcessor) << int(ToolBarImport) << "Import...";
        QTest::newRow("file to export") << CPanelFixture::FnAnswers(OneProcessor) << int(ToolBarExport) << "Save...";
        QTest::newRow("address of a processor")
            << CPanelFixture::FnAnswers(NoProcessor) << int(ToolBarAddProcessor) << "Add a processor";
        QTest::newRow("simulators") << CPanelFixture::FnAnswers(SimulatorPane) << int(ToolBarAddProcessor) << "Add simulators";
    }

    void theOpenDialogGoesWithThePanel()
    {
        QFETCH(CPanelFixture::FnAnswers, fnAnswers);
        QFETCH(int, nCommand);
        QFETCH(QString, strTitle);
        CPanelFixture panel(fnAnswers);
        panel.Refresh();
        panel.control.ClearJournal();
        const QPointer<QWidget> pView = panel.View();
        CDialogDriver driver;
        driver.Answer([&](QDialog*) { panel.Delete(); });

        panel.View()->DealToolBarButton(nCommand);

        QVERIFY(!pView);
        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown().size(), 1);
        QVERIFY2(driver.Shown().constFirst().startsWith(strTitle), qPrintable(driver.Shown().constFirst()));
        QVERIFY(!QApplication::activeModalWidget());
        // The list is saved as ever; nothing was added, deleted, read or written.
        QCOMPARE(panel.control.Commands(), QStringList("g_pPrcListControl.ExportList(\"\", 0)"));
    }

    void theOpenDialogGoesWithTheHostsWindow_data()
    {
        theOpenDialogGoesWithThePanel_data();
    }

    // The host's window owns the panel: it is destroyed as a child, not by the interface.
    void theOpenDialogGoesWithTheHostsWindow()
    {
        QFETCH(CPanelFixture::FnAnswers, fnAnswers);
        QFETCH(int, nCommand);
        CPanelFixture panel(fnAnswers);
        panel.Refresh();
        auto* pWindow = new QWidget;
        panel.View()->setParent(pWindow);
        panel.View()->show();
        pWindow->show();
        panel.control.ClearJournal();
        CDialogDriver driver;
        driver.Answer([&](QDialog*) {
            panel.pWidget = nullptr;
            delete pWindow;
        });

        panel.View()->DealToolBarButton(nCommand);

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown().size(), 1);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(panel.control.Commands(), QStringList("g_pPrcListControl.ExportList(\"\", 0)"));
    }

    void theWordAboutAnImportGoesWithThePanel_data()
    {
        QTest::addColumn<int>("nResult");
        QTest::newRow("done") << 0;
        QTest::newRow("invalid file") << 2;
        QTest::newRow("over the limit") << 5;
    }

    void theWordAboutAnImportGoesWithThePanel()
    {
        QFETCH(int, nResult);
        const QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("site.kvtl")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        CPanelFixture panel([&](SControlAnswers& answers) { answers.nImportResult = nResult; });
        const QPointer<QWidget> pView = panel.View();
        CDialogDriver driver;
        driver.AnswerByFile(file.fileName());
        driver.Answer([&](QDialog*) { panel.Delete(); });

        panel.View()->DealToolBarButton(ToolBarImport);

        QTRY_VERIFY(!pView);
        QTRY_VERIFY(driver.IsDone());
        QVERIFY(!QApplication::activeModalWidget());
    }
};

PTV_TEST_MAIN(CEndUnderDialogTest)
#include "tst_endunderdialog.moc"
