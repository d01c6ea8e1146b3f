#include "CDialogDriver.h"
#include "CFaultWindow.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"

#include <QAbstractButton>
#include <QAction>
#include <QSignalSpy>
#include <QTreeView>

namespace {

const QString strQuestion
    = QStringLiteral("Overwrite confirmation: This operation will overwrite the processor list.\nContinue?");

QWidget* Panel(const CFaultWindow& scene)
{
    return scene.kestrel.pPanel->GetWidget();
}

void Trigger(const CFaultWindow& scene, const char* szAction)
{
    PanelAccess::FindAction(Panel(scene), "CProcessorTreeToolBar", szAction)->trigger();
}

/// A list of one group, to import.
QString WriteList(CFaultWindow& scene)
{
    const QString strPath = scene.kestrel.folder.filePath(QStringLiteral("in.kvtl"));
    const int nCode = g_pPrcListControl->ExportList(strPath, 0);
    scene.commands.Take();
    return nCode == 0 ? strPath : QString();
}

/// What the user does for a command that is refused, and what reaches the library.
struct SRefusedGesture
{
    const char* szCommand;
    EnListCommand command;
    std::function<void(CFaultWindow&, CDialogDriver&)> fnDo;
    QStringList listCommand;
};

const QString strBusy = QStringLiteral("gui: RuntimeControl.SetBusy(true)");

QString Selected(const char* szName)
{
    return QStringLiteral("gui: RuntimeControl.SetSelectedNodes([%1])").arg(szName);
}

void Press(const CFaultWindow& scene, const char* szTip)
{
    PanelAccess::FindButton(Panel(scene), szTip)->click();
}

QList<SRefusedGesture> Additions()
{
    return {
        { "add-group",
          CommandAddGroup,
          [](CFaultWindow& scene, CDialogDriver&) { Press(scene, "Add group"); },
          { "gui: PrcListControl.AddGroup(Group 1, true)", "gui: RuntimeControl.SetSelectedNodes([new])" } },
        { "add-processor",
          CommandAddProcessor,
          [](CFaultWindow& scene, CDialogDriver& driver) {
              driver.Answer("DialogAccept");
              Press(scene, "Add a processor");
          },
          { strBusy, "other: PrcBasicControl.AddProcessor(192.168.1.10)", "other: RuntimeControl.SetBusy(false)" } },
        { "add-simulators",
          CommandAddSimulators,
          [](CFaultWindow& scene, CDialogDriver& driver) {
              PanelAccess::FindTab(Panel(scene), true)->click();
              driver.Answer("DialogAccept");
              Press(scene, "Add simulators");
          },
          { "gui: RuntimeControl.SetSimulatorPane(true)", "gui: PrcBasicControl.AddSimulators(1)" } },
    };
}

QList<SRefusedGesture> Deletions()
{
    return {
        { "delete",
          CommandDelete,
          [](CFaultWindow& scene, CDialogDriver&) {
              scene.kestrel.Select({ "Door 1" });
              scene.kestrel.Key(Qt::Key_Delete);
          },
          { Selected("Door 1"), strBusy, "other: PrcListControl.DeleteProcessor(Door 1, false)",
            "other: RuntimeControl.SetSelectedNodes([Empty])", "other: RuntimeControl.PostMessage(14)",
            "other: RuntimeControl.SetBusy(false)" } },
        { "delete-group",
          CommandDeleteGroup,
          [](CFaultWindow& scene, CDialogDriver&) {
              scene.kestrel.Select({ "Main stage" });
              scene.kestrel.Key(Qt::Key_Delete);
          },
          { Selected("Main stage"), strBusy, "other: PrcListControl.DeleteGroup(Main stage, true)",
            "other: RuntimeControl.SetSelectedNodes([root])", "other: RuntimeControl.PostMessage(14)",
            "other: RuntimeControl.SetBusy(false)" } },
        { "ungroup",
          CommandUngroup,
          [](CFaultWindow& scene, CDialogDriver&) { scene.kestrel.Choose({ "Main stage" }, { "Ungroup" }); },
          { Selected("Main stage"), "gui: PrcListControl.DeleteGroup(Main stage, false)", Selected("root") } },
    };
}

QList<SRefusedGesture> Edits()
{
    return {
        { "rename",
          CommandRename,
          [](CFaultWindow& scene, CDialogDriver&) {
              scene.kestrel.Select({ "Door 1" });
              scene.kestrel.Key(Qt::Key_F2);
              scene.kestrel.Type("Gate");
              scene.kestrel.Key(Qt::Key_Return);
          },
          { Selected("Door 1"), "gui: PrcBasicControl.RenameProcessor(Door 1, Gate)" } },
        { "move",
          CommandMove,
          [](CFaultWindow& scene, CDialogDriver&) { scene.kestrel.Drop({ "Door 1" }, "Empty"); },
          { Selected("Door 1"), "gui: PrcListControl.MoveProcessor(Door 1, Empty)" } },
    };
}

QList<SRefusedGesture> Files()
{
    return {
        { "import",
          CommandImport,
          [](CFaultWindow& scene, CDialogDriver& driver) {
              driver.Answer("ButtonYes");
              driver.AnswerByFile(WriteList(scene));
              Trigger(scene, "Import");
          },
          { "gui: PrcListControl.ImportList(file)" } },
        { "export",
          CommandExport,
          [](CFaultWindow& scene, CDialogDriver& driver) {
              driver.AnswerByFile(scene.kestrel.folder.filePath("out.kvtl"));
              Trigger(scene, "Export");
          },
          { "gui: PrcListControl.ExportList(file, 0)" } },
        { "scan",
          CommandScan,
          [](CFaultWindow& scene, CDialogDriver&) {
              Panel(scene)->findChild<QAbstractButton*>(QStringLiteral("IconButtonTitle"))->click();
          },
          { strBusy, "pool: PrcBasicControl.RefreshProcessors()", "pool: RuntimeControl.SetBusy(false)" } },
    };
}

QList<SRefusedGesture> Refusals()
{
    return Additions() + Deletions() + Edits() + Files();
}

} // namespace

/// The panel when the library refuses what it is asked for, or answers a code that nothing stands behind.
class CRefusedCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void aRefusedCommandChangesNothingAndIsToldToTheHost_data()
    {
        QTest::addColumn<int>("nGesture");
        for (int n = 0; n < listGesture.size(); ++n) {
            QTest::newRow(listGesture[n].szCommand) << n;
        }
    }

    void aRefusedCommandChangesNothingAndIsToldToTheHost()
    {
        QFETCH(int, nGesture);
        const SRefusedGesture& gesture = listGesture[nGesture];
        CFaultWindow scene;
        CDialogDriver driver;
        const QString strBefore = CListWindow::ListText();
        QList<SRefusal> listRefusal;
        QObject context;
        connect(scene.kestrel.pHost.get(), &IControlHost::CommandRefused, &context,
                [&](const SRefusal& refusal) { listRefusal.append(refusal); });
        scene.Break(QStringLiteral("'do':'refuse','command':'%1'").arg(gesture.szCommand));

        gesture.fnDo(scene, driver);

        QTRY_COMPARE(listRefusal.size(), 1);
        QCOMPARE(listRefusal[0].command, gesture.command);
        QCOMPARE(listRefusal[0].reason, ReasonNotSupported);
        QVERIFY(scene.Settle());
        QCOMPARE(CListWindow::ListText(), strBefore);
        QVERIFY2(scene.IsTrueAfterTheNextMessage(), qPrintable(scene.Shown() + "\n" + scene.Truth()));
        QVERIFY2(scene.HasSent(gesture.listCommand), qPrintable(scene.commands.Get().join('\n')));
    }

    void everyCommandThatCanBeRefusedIsTried()
    {
        QStringList listTried;
        for (const SRefusedGesture& gesture : listGesture) {
            listTried.append(gesture.szCommand);
        }
        QCOMPARE(listTried.join('\n'), ControlCalls::GetCommands().join('\n'));
    }

    void afterTheRefusalsTheCommandIsTaken()
    {
        CFaultWindow scene;
        scene.Break("'do':'refuse','command':'move','count':2");
        for (int n = 0; n < 3; ++n) {
            scene.kestrel.Drop({ "Door 1" }, "Empty");
        }
        QTRY_VERIFY(scene.Shown().contains("Empty\n  Door 1"));
        QCOMPARE(scene.Shown(), scene.Truth());
    }

    void aRefusedSelectionFallsBackToTheLibrarys()
    {
        CFaultWindow scene;
        scene.kestrel.Select({ "Door 2" });
        scene.commands.Take();
        scene.Break("'do':'refuse-selection','count':1");

        scene.kestrel.Select({ "Door 3" });

        QVERIFY(scene.Shown().contains("Door 3*"));
        QVERIFY(scene.Truth().contains("Door 2*"));
        QVERIFY(scene.IsTrueAfterTheNextMessage());
        QVERIFY(scene.Shown().contains("Door 2*"));
        QVERIFY2(scene.HasSent({ "gui: RuntimeControl.SetSelectedNodes([Door 3])" }),
                 qPrintable(scene.commands.Get().join('\n')));
    }

    void aDeletionWhoseSelectionIsRefusedSaysSo()
    {
        CFaultWindow scene;
        scene.kestrel.Select({ "Door 1" });
        scene.commands.Take();
        scene.Break("'do':'refuse-selection','count':1");

        scene.kestrel.Key(Qt::Key_Delete);

        QTRY_VERIFY(!scene.Shown().contains("Door 1"));
        QVERIFY(scene.Settle());
        QVERIFY(scene.IsTrueAfterTheNextMessage());
        QVERIFY2(scene.HasSent({ "gui: RuntimeControl.SetBusy(true)", "other: PrcListControl.DeleteProcessor(Door 1, false)",
                                 "other: RuntimeControl.SetSelectedNodes([Empty])", "other: RuntimeControl.PostMessage(15)",
                                 "other: RuntimeControl.PostMessage(14)", "other: RuntimeControl.SetBusy(false)" }),
                 qPrintable(scene.commands.Get().join('\n')));
    }

    void anImportCodeIsToldAndChangesNothing_data()
    {
        QTest::addColumn<int>("nCode");
        QTest::addColumn<QString>("strDialog");
        QTest::newRow("invalid") << 2 << "Cannot import file: The currently imported file is invalid.";
        QTest::newRow("not overwritten") << 3 << "Import: Overwrite failed.";
        QTest::newRow("not copied") << 4 << "Import: Copy failed.";
        QTest::newRow("too large") << 5 << "Cannot import file: The number of processors involved exceeds the limit.";
        QTest::newRow("locked, which the panel does not know") << 6 << "";
        QTest::newRow("undocumented") << 1 << "";
        QTest::newRow("unknown") << 99 << "";
    }

    void anImportCodeIsToldAndChangesNothing()
    {
        QFETCH(int, nCode);
        QFETCH(QString, strDialog);
        CFaultWindow scene;
        const QString strPath = WriteList(scene);
        g_pPrcListControl->RenameGroup(CListWindow::Id("Empty"), "Foyer"); // what the file has not
        QTRY_VERIFY(scene.Shown().contains("Foyer"));
        scene.commands.Take();
        scene.Break(QStringLiteral("'do':'import-code','code':%1").arg(nCode));
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        driver.AnswerByFile(strPath);
        QStringList listDialog{ strQuestion, "Import..." };
        if (!strDialog.isEmpty()) {
            driver.Answer("ButtonOk");
            listDialog.append(strDialog);
        }

        Trigger(scene, "Import");

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), listDialog);
        QCOMPARE(scene.commands.Take(), QStringList{ "gui: PrcListControl.ImportList(file)" });
        QCOMPARE(scene.Shown(), scene.Truth());
        QVERIFY(scene.Shown().contains("Foyer"));
        QVERIFY(scene.IsTrueAfterTheNextMessage());
    }

    void anImportThatOnlySaysItWasDoneShowsWhatThereIs()
    {
        CFaultWindow scene;
        const QString strPath = WriteList(scene);
        g_pPrcListControl->RenameGroup(CListWindow::Id("Empty"), "Foyer");
        scene.commands.Take();
        scene.Break("'do':'import-code','code':0");
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        driver.AnswerByFile(strPath);
        driver.Answer("ButtonOk");

        Trigger(scene, "Import");

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), (QStringList{ strQuestion, "Import...", "Import: Import sucessfully." }));
        QVERIFY(scene.Settle());
        QCOMPARE(scene.commands.Take(),
                 (QStringList{ "gui: PrcListControl.ImportList(file)", "gui: RuntimeControl.SetBusy(true)",
                               "pool: RuntimeControl.SetSelectedNodes([root])", "pool: PrcBasicControl.RefreshProcessors()",
                               "pool: RuntimeControl.SetBusy(false)" }));
        QVERIFY(scene.IsTrueAfterTheNextMessage());
        QVERIFY(scene.Shown().contains("Foyer"));
    }

    void onlyAnExportThatWasDoneIsSaid_data()
    {
        QTest::addColumn<int>("nCode");
        QTest::addColumn<QString>("strDialog");
        QTest::newRow("done") << 0 << "Export: Export sucessfully.";
        QTest::newRow("worthless") << 1 << "";
        QTest::newRow("not written") << 6 << "";
        QTest::newRow("left alone") << 7 << "";
        QTest::newRow("unknown") << 99 << "";
    }

    void onlyAnExportThatWasDoneIsSaid()
    {
        QFETCH(int, nCode);
        QFETCH(QString, strDialog);
        CFaultWindow scene;
        const QString strPath = scene.kestrel.folder.filePath("out.kvtl");
        scene.Break(QStringLiteral("'do':'export-code','code':%1").arg(nCode));
        CDialogDriver driver;
        driver.AnswerByFile(strPath);
        QStringList listDialog{ "Save..." };
        if (!strDialog.isEmpty()) {
            driver.Answer("ButtonOk");
            listDialog.append(strDialog);
        }

        Trigger(scene, "Export");

        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), listDialog);
        QCOMPARE(scene.commands.Take(), QStringList{ "gui: PrcListControl.ExportList(file, 0)" });
        QVERIFY(!QFile::exists(strPath));
        QVERIFY(scene.IsTrueAfterTheNextMessage());
    }

    // The contract promises that a 1 means a worthless file. A library that lies has its list again as soon as it saves.
    void theFinalExportRemovesTheListForOneAlone_data()
    {
        QTest::addColumn<int>("nCode");
        QTest::addColumn<bool>("bThere");
        QTest::newRow("done") << 0 << true;
        QTest::newRow("worthless") << 1 << false;
        QTest::newRow("left alone") << 7 << true;
        QTest::newRow("unknown") << 99 << true;
    }

    void theFinalExportRemovesTheListForOneAlone()
    {
        QFETCH(int, nCode);
        QFETCH(bool, bThere);
        CFaultWindow scene;
        QCOMPARE(scene.kestrel.pHost->SaveList(), QString());
        scene.Break(QStringLiteral("'do':'export-code','code':%1").arg(nCode));

        scene.kestrel.pPanel.reset();

        QCOMPARE(QFile::exists(scene.kestrel.folder.filePath("list.kvtl")), bThere);
    }

private:
    const QList<SRefusedGesture> listGesture = Refusals();
};

PTV_TEST_MAIN(CRefusedCallsTest)
#include "tst_refusedcalls.moc"
