#include "CDialogDriver.h"
#include "CFaultWindow.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QAbstractButton>
#include <QAction>
#include <QTreeView>

namespace {

/// What the user does while a call throws, the commands that reach the library then, and the dialogs that are shown.
struct SGesture
{
    const char* szCall;
    std::function<void(CFaultWindow&, CDialogDriver&)> fnDo;
    QStringList listCommand;
    QStringList listDialog = {};
};

QWidget* Panel(const CFaultWindow& scene)
{
    return scene.kestrel.pPanel->GetWidget();
}

void Press(const CFaultWindow& scene, const QString& strToolTip)
{
    PanelAccess::FindButton(Panel(scene), strToolTip)->click();
}

void ChooseSimulators(CFaultWindow& scene, CDialogDriver& /*driver*/)
{
    PanelAccess::FindTab(Panel(scene), true)->click();
}

void Refresh(CFaultWindow& scene, CDialogDriver& /*driver*/)
{
    Panel(scene)->findChild<QAbstractButton*>(QStringLiteral("IconButtonTitle"))->click();
}

void AddGroup(CFaultWindow& scene, CDialogDriver& /*driver*/)
{
    Press(scene, "Add group");
}

void AddProcessor(CFaultWindow& scene, CDialogDriver& driver)
{
    driver.Answer("DialogAccept");
    Press(scene, "Add a processor");
}

void AddSimulator(CFaultWindow& scene, CDialogDriver& driver)
{
    ChooseSimulators(scene, driver);
    driver.Answer("DialogAccept");
    Press(scene, "Add simulators");
}

void Delete(CFaultWindow& scene, CDialogDriver& /*driver*/)
{
    scene.kestrel.Select({ "Door 1" });
    scene.kestrel.Key(Qt::Key_Delete);
}

void MakeRead(CFaultWindow& scene, CDialogDriver& /*driver*/)
{
    scene.kestrel.pHost->OpenProject(QStringLiteral("Aurora"));
}

void Rename(const CFaultWindow& scene, const QString& strNode)
{
    scene.kestrel.Select({ strNode });
    scene.kestrel.Key(Qt::Key_F2);
    scene.kestrel.Type(QStringLiteral("New"));
    scene.kestrel.Key(Qt::Key_Return);
}

void Export(CFaultWindow& scene, CDialogDriver& driver)
{
    driver.AnswerByFile(scene.kestrel.folder.filePath(QStringLiteral("out.kvtl")));
    PanelAccess::FindAction(Panel(scene), "CProcessorTreeToolBar", "Export")->trigger();
}

void Import(CFaultWindow& scene, CDialogDriver& driver)
{
    const QString strPath = scene.kestrel.folder.filePath(QStringLiteral("in.kvtl"));
    QCOMPARE(g_pPrcListControl->ExportList(strPath, 0), 0);
    scene.commands.Take();
    driver.Answer("ButtonYes");
    driver.AnswerByFile(strPath);
    driver.Answer("ButtonOk");
    PanelAccess::FindAction(Panel(scene), "CProcessorTreeToolBar", "Import")->trigger();
}

const QStringList listDeletion{ "gui: RuntimeControl.SetSelectedNodes([Door 1])",
                                "gui: RuntimeControl.SetBusy(true)",
                                "other: PrcListControl.DeleteProcessor(Door 1, false)",
                                "other: RuntimeControl.SetSelectedNodes([Empty])",
                                "other: RuntimeControl.PostMessage(14)",
                                "other: RuntimeControl.SetBusy(false)" };
const QStringList listScan{ "gui: RuntimeControl.SetBusy(true)", "pool: PrcBasicControl.RefreshProcessors()",
                            "pool: RuntimeControl.SetBusy(false)" };
const QStringList listAddition{ "gui: RuntimeControl.SetBusy(true)", "other: PrcBasicControl.AddProcessor(192.168.1.10)",
                                "other: RuntimeControl.SetBusy(false)" };
const QStringList listSimulation{ "gui: RuntimeControl.SetSimulatorPane(true)", "gui: PrcBasicControl.AddSimulators(1)" };
const QStringList listGrouping{ "gui: PrcListControl.AddGroup(Group 1, true)", "gui: RuntimeControl.SetSelectedNodes([new])" };

QList<SGesture> Reads()
{
    QList<SGesture> listGesture{
        { "ConfigControl.GetReservedIPs", AddProcessor, listAddition, { "Add a processor" } },
        { "PrcBasicControl.GetLocalAddress", AddProcessor, listAddition, { "Add a processor" } },
        { "PrcListControl.GetProcessorIPs", AddProcessor, listAddition, { "Add a processor" } },
        { "PrcBasicControl.GetTypeName", AddSimulator, listSimulation, { "Add simulators" } },
        { "PrcListControl.GetSimulatorCount", AddSimulator, listSimulation, { "Add simulators" } },
        { "PrcListControl.GetNodeType", Delete, listDeletion },
        { "PrcListControl.IsNodeActive", Delete, listDeletion },
        { "RuntimeControl.GetSelectedProcessors", Delete, listDeletion },
        { "RuntimeControl.IsNodeInUse", Delete, listDeletion },
        { "RuntimeControl.IsDeleteBlocked", Delete, listDeletion },
        { "PrcListControl.GetNextGroupIndex", AddGroup, listGrouping },
    };
    for (const char* szCall :
         { "PrcListControl.GetDiscoveredTree", "PrcListControl.GetSimulatorTree", "PreferenceControl.IsChiefMode",
           "ProjectManageControl.GetProjectInfo", "PrcBasicControl.IsListLocked", "PrcBasicControl.IsRefreshBlocked",
           "RuntimeControl.GetSelectedNodes", "RuntimeControl.IsSimulatorPane" }) {
        listGesture.append({ szCall, MakeRead, {} });
    }
    return listGesture;
}

QList<SGesture> Commands()
{
    using W = CFaultWindow;
    using D = CDialogDriver;
    const auto selected
        = [](const char* szName) { return QStringLiteral("gui: RuntimeControl.SetSelectedNodes([%1])").arg(szName); };
    return {
        { "PrcBasicControl.RefreshProcessors", Refresh, listScan },
        { "RuntimeControl.SetBusy", Refresh, listScan },
        { "PrcBasicControl.AddProcessor", AddProcessor, listAddition, { "Add a processor" } },
        { "PrcBasicControl.AddSimulators", AddSimulator, listSimulation, { "Add simulators" } },
        { "RuntimeControl.SetSimulatorPane", ChooseSimulators, { "gui: RuntimeControl.SetSimulatorPane(true)" } },
        { "PrcBasicControl.RenameProcessor",
          [](W& scene, D&) { Rename(scene, "Door 1"); },
          { selected("Door 1"), "gui: PrcBasicControl.RenameProcessor(Door 1, New)" } },
        { "PrcListControl.RenameGroup",
          [](W& scene, D&) { Rename(scene, "Empty"); },
          { selected("Empty"), "gui: PrcListControl.RenameGroup(Empty, New)" } },
        { "PrcListControl.AddGroup", AddGroup, listGrouping },
        { "PrcListControl.MoveProcessor",
          [](W& scene, D&) { scene.kestrel.Drop({ "Door 1" }, "Empty"); },
          { selected("Door 1"), "gui: PrcListControl.MoveProcessor(Door 1, Empty)" } },
        { "PrcListControl.DeleteGroup",
          [](W& scene, D&) { scene.kestrel.Choose({ "Main stage" }, { "Ungroup" }); },
          { selected("Main stage"), "gui: PrcListControl.DeleteGroup(Main stage, false)", selected("root") } },
        { "PrcListControl.DeleteProcessor", Delete, listDeletion },
        { "RuntimeControl.PostMessage", Delete, listDeletion },
        { "PrcListControl.SetExpanded",
          [](W& scene, D&) { scene.Tree()->collapse(scene.kestrel.Row("Main stage")); },
          { "gui: PrcListControl.SetExpanded(Main stage, false)" } },
        { "RuntimeControl.SetSelectedNodes", [](W& scene, D&) { scene.kestrel.Select({ "Door 2" }); }, { selected("Door 2") } },
        { "PrcListControl.ExportList", Export, { "gui: PrcListControl.ExportList(file, 0)" }, { "Save..." } },
        { "PrcListControl.ImportList",
          Import,
          { "gui: PrcListControl.ImportList(file)" },
          { "Overwrite confirmation: This operation will overwrite the processor list.\nContinue?", "Import...",
            "Import: Overwrite failed." } },
    };
}

} // namespace

/// The panel while the library throws: it survives, sends nothing but what the user has asked for, and shows the truth after the
/// next message.
class CThrowingCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void aCallThatThrowsHarmsNothing_data()
    {
        QTest::addColumn<int>("nGesture");
        QTest::addColumn<QString>("strThrown");
        for (int n = 0; n < listGesture.size(); ++n) {
            for (const char* szThrown : { "error", "other" }) {
                QTest::addRow("%s, %s", listGesture[n].szCall, szThrown) << n << QString(szThrown);
            }
        }
    }

    void aCallThatThrowsHarmsNothing()
    {
        QFETCH(int, nGesture);
        QFETCH(QString, strThrown);
        const SGesture& gesture = listGesture[nGesture];
        CFaultWindow scene;
        CDialogDriver driver;
        scene.Break(QStringLiteral("'do':'throw','call':'%1','thrown':'%2'").arg(gesture.szCall, strThrown));

        gesture.fnDo(scene, driver);

        QTRY_COMPARE(scene.commands.CountThrown(gesture.szCall), 1);
        QVERIFY(scene.Settle());
        QCOMPARE(driver.Shown(), gesture.listDialog);
        QVERIFY2(scene.IsTrueAfterTheNextMessage(), qPrintable(scene.Shown() + "\n" + scene.Truth()));
        QVERIFY2(scene.HasSent(gesture.listCommand), qPrintable(scene.commands.Get().join('\n')));
    }

    void aReadingThatThrowsLeavesTheSelectionOfTheLibrary_data()
    {
        QTest::addColumn<QString>("strCall");
        for (const char* szCall : { "PrcListControl.GetDiscoveredTree", "PrcListControl.GetSimulatorTree",
                                    "RuntimeControl.GetSelectedNodes", "RuntimeControl.IsSimulatorPane" }) {
            QTest::newRow(szCall) << QString(szCall);
        }
    }

    void aReadingThatThrowsLeavesTheSelectionOfTheLibrary()
    {
        QFETCH(QString, strCall);
        CFaultWindow scene;
        scene.kestrel.Select({ "Door 2" });
        const std::vector<QUuid> vecSelected{ CListWindow::Id("Door 2") };
        scene.Break(QStringLiteral("'do':'throw','call':'%1'").arg(strCall));

        scene.kestrel.pHost->OpenProject("Aurora");
        QTRY_COMPARE(scene.commands.CountThrown(strCall), 1);
        QVERIFY(scene.IsTrueAfterTheNextMessage());

        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), vecSelected);
        QVERIFY2(scene.HasSent({ "gui: RuntimeControl.SetSelectedNodes([Door 2])" }),
                 qPrintable(scene.commands.Get().join('\n')));
    }

    void thePanelComesBackToThePaneThatCouldNotBeRead()
    {
        CFaultWindow scene;
        PanelAccess::FindTab(Panel(scene), true)->click();
        scene.Break("'do':'throw','call':'RuntimeControl.IsSimulatorPane'");

        scene.kestrel.pHost->OpenProject("Aurora");

        QTRY_COMPARE(scene.commands.CountThrown("RuntimeControl.IsSimulatorPane"), 1);
        QVERIFY(scene.IsTrueAfterTheNextMessage());
        QVERIFY2(scene.HasSent({ "gui: RuntimeControl.SetSimulatorPane(true)" }), qPrintable(scene.commands.Get().join('\n')));
    }

    void aPanelBeginsWhoseObserversAreNotTaken()
    {
        CFaultWindow scene;
        scene.kestrel.pPanel.reset();
        for (const char* szObject : listObject) {
            scene.Break(QStringLiteral("'do':'throw','call':'%1.Attach','count':1").arg(szObject));
        }

        scene.OpenPanel();

        for (const char* szObject : listObject) {
            QCOMPARE(scene.commands.CountThrown(QStringLiteral("%1.Attach").arg(szObject)), 1);
        }
        QVERIFY(scene.Tree());
    }

    void aPanelEndsWhoseLastCallsThrow()
    {
        CFaultWindow scene;
        const QStringList listCall{ "ConfigControl.GetListFilePath", "PrcListControl.ExportList" };
        for (const QString& strCall : listCall) {
            scene.Break(QStringLiteral("'do':'throw','call':'%1'").arg(strCall));
        }
        for (const char* szObject : listObject) {
            scene.Break(QStringLiteral("'do':'throw','call':'%1.Detach','count':1").arg(szObject));
        }

        scene.kestrel.pPanel.reset();

        for (const QString& strCall : listCall) {
            QCOMPARE(scene.commands.CountThrown(strCall), 1);
        }
        for (const char* szObject : listObject) {
            QCOMPARE(scene.commands.CountThrown(QStringLiteral("%1.Detach").arg(szObject)), 1);
        }
        scene.kestrel.pHost->OpenProject("Aurora"); // a message more, which nobody may get who has gone
    }

    void everyOperationIsTried()
    {
        QStringList listTried{ "ConfigControl.GetListFilePath" };
        for (const char* szObject : listObject) {
            listTried += { QStringLiteral("%1.Attach").arg(szObject), QStringLiteral("%1.Detach").arg(szObject) };
        }
        for (const SGesture& gesture : listGesture) {
            listTried.append(gesture.szCall);
        }
        listTried.sort();
        QCOMPARE(listTried.join('\n'), CFaultWindow::Operations().join('\n'));
    }

private:
    const QList<SGesture> listGesture = Reads() + Commands();
    const QList<const char*> listObject{ "PrcBasicControl",      "PrcListControl",  "PrcRuntimeControl", "PreferenceControl",
                                         "ProjectManageControl", "ProtocalControl", "RuntimeControl" };
};

PTV_TEST_MAIN(CThrowingCallsTest)
#include "tst_throwingcalls.moc"
