#include "CDialogDriver.h"
#include "TestMain.h"
#include "fixtures/CUsedPanel.h"
#include "interfaces/host/ICorvidWidget.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>

#include <functional>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }), Group("Hall") },
                { Processor("loose").Expanded(false), Processor("other").Expanded(false) });
}

/// A panel that a user works with, and the control library's operations that were called meanwhile on the GUI thread.
class CWatchedPanel : public CUsedPanel
{
public:
    CWatchedPanel()
        : CUsedPanel([](SControlAnswers& answers) {
              answers.nodeDiscovered = Site();
              answers.nodeSimulator = Root({}, { Processor("sim").Expanded(false) });
              answers.setActive = { ProcessorId("alpha"), ProcessorId("loose"), ProcessorId("other") };
          })
    { }

    /// A file to import.
    QString WriteList() const
    {
        QFile file(folder.filePath("in.kvtl"));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }

    /// "RuntimeControl.SetBusy", sorted, each once, since the last time; then forgets them.
    QStringList Take()
    {
        QCoreApplication::processEvents();
        QStringList listCall;
        for (const QString& strCall : panel.control.CallsWithThread()) {
            if (strCall.startsWith("gui: g_p")) {
                listCall.append(strCall.mid(8).section('(', 0, 0));
            }
        }
        panel.control.ClearJournal();
        listCall.removeDuplicates();
        listCall.sort();
        return listCall;
    }

    /// As Take, on the other threads, but for the last calls of the worker, which detaches.
    QStringList TakeOthers()
    {
        QCoreApplication::processEvents();
        QStringList listCall;
        for (const QString& strCall : panel.control.CallsWithThread()) {
            if (!strCall.startsWith("gui: ") && strCall.contains(": g_p") && !strCall.contains(".Detach(")) {
                listCall.append(strCall.section(": g_p", 1).section('(', 0, 0));
            }
        }
        panel.control.ClearJournal();
        return listCall;
    }

    CDialogDriver driver;
    QTemporaryDir folder;
};

/// Something that the user or the host does, and the calls on the GUI thread that come of it, sorted.
struct SGesture
{
    const char* szName;
    std::function<void(CWatchedPanel&)> fnDo;
    const char* szCalls;
};

QList<SGesture> Selections()
{
    return {
        { "click", [](CWatchedPanel& scene) { scene.Click("alpha"); },
          "RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes" },
        { "Ctrl+click", [](CWatchedPanel& scene) { scene.Click("alpha", Qt::ControlModifier); },
          "RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "Down", [](CWatchedPanel& scene) { scene.Press(Qt::Key_Down); },
          "RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes" },
        { "Ctrl+A", [](CWatchedPanel& scene) { scene.Press(Qt::Key_A, Qt::ControlModifier); },
          "RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "select all of the host",
          [](CWatchedPanel& scene) {
              scene.panel.Tree()->setFocus();
              scene.panel.View()->DealMenuBar(18, true);
          },
          "RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "fold", [](CWatchedPanel& scene) { scene.panel.Tree()->collapse(scene.Row("Stage")); }, "PrcListControl.SetExpanded" },
        { "other pane", [](CWatchedPanel& scene) { scene.panel.Click(scene.panel.SimulatorTab()); },
          "RuntimeControl.SetSelectedNodes RuntimeControl.SetSimulatorPane" },
        { "pointer", [](CWatchedPanel& scene) { QTest::mouseMove(scene.panel.Tree()->viewport(), QPoint(60, 50)); }, "" },
        { "search",
          [](CWatchedPanel& scene) {
              scene.panel.MenuAction("Search")->trigger();
              QTest::keyClicks(scene.panel.SearchEdit(), "al");
          },
          "" },
    };
}

QList<SGesture> ToolBar()
{
    return {
        { "refresh",
          [](CWatchedPanel& scene) {
              scene.panel.Click(scene.panel.RefreshButton());
              scene.AwaitJob();
          },
          "RuntimeControl.SetBusy" },
        { "add group", [](CWatchedPanel& scene) { scene.panel.Click(scene.panel.ToolButton("Add group")); },
          "PrcListControl.AddGroup PrcListControl.GetNextGroupIndex RuntimeControl.SetSelectedNodes" },
        { "add processor",
          [](CWatchedPanel& scene) {
              scene.driver.Answer("DialogAccept");
              scene.panel.Click(scene.panel.ToolButton("Add a processor"));
              scene.AwaitJob();
          },
          "ConfigControl.GetReservedIPs PrcBasicControl.GetLocalAddress PrcListControl.GetProcessorIPs RuntimeControl.SetBusy" },
        { "add simulator",
          [](CWatchedPanel& scene) {
              scene.panel.Click(scene.panel.SimulatorTab());
              scene.driver.Answer("DialogAccept");
              scene.panel.Click(scene.panel.ToolButton("Add simulators"));
          },
          "PrcBasicControl.AddSimulators PrcBasicControl.GetTypeName PrcListControl.GetSimulatorCount "
          "RuntimeControl.SetSelectedNodes RuntimeControl.SetSimulatorPane" },
        { "delete",
          [](CWatchedPanel& scene) {
              scene.Click("loose");
              scene.driver.Answer("Yes");
              scene.panel.Click(scene.panel.ToolButton("Delete"));
              scene.AwaitJob();
          },
          "PrcListControl.GetNodeType PrcListControl.IsNodeActive RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetBusy RuntimeControl.SetSelectedNodes" },
    };
}

QList<SGesture> ListFiles()
{
    return {
        { "import",
          [](CWatchedPanel& scene) {
              scene.driver.Answer("ButtonYes");
              scene.driver.AnswerByFile(scene.WriteList());
              scene.driver.Answer("ButtonOk");
              scene.panel.MenuAction("Import")->trigger();
              scene.AwaitJob();
          },
          "PrcListControl.GetDiscoveredTree PrcListControl.ImportList RuntimeControl.SetBusy" },
        { "export",
          [](CWatchedPanel& scene) {
              scene.driver.AnswerByFile(scene.folder.filePath("out.kvtl"));
              scene.driver.Answer("OK");
              scene.panel.MenuAction("Export")->trigger();
          },
          "PrcListControl.ExportList" },
    };
}

QList<SGesture> Menus()
{
    return {
        { "rename a processor",
          [](CWatchedPanel& scene) {
              scene.Choose({ "loose" }, { "Rename" });
              scene.Type("renamed");
          },
          "PrcBasicControl.RenameProcessor PrcListControl.IsNodeActive RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "rename a group",
          [](CWatchedPanel& scene) {
              scene.Click("Stage");
              scene.Press(Qt::Key_F2);
              scene.Type("renamed");
          },
          "PrcListControl.RenameGroup RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes" },
        { "group", [](CWatchedPanel& scene) { scene.Choose({ "loose", "other" }, { "Group" }); },
          "PrcListControl.AddGroup PrcListControl.GetNextGroupIndex PrcListControl.IsNodeActive PrcListControl.MoveProcessor "
          "RuntimeControl.GetSelectedProcessors RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse "
          "RuntimeControl.SetSelectedNodes" },
        { "move to group", [](CWatchedPanel& scene) { scene.Choose({ "loose" }, { "Move to group", "Hall" }); },
          "PrcListControl.IsNodeActive PrcListControl.MoveProcessor RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "remove from group", [](CWatchedPanel& scene) { scene.Choose({ "alpha" }, { "Remove from group" }); },
          "PrcListControl.IsNodeActive PrcListControl.MoveProcessor RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "ungroup", [](CWatchedPanel& scene) { scene.Choose({ "Stage" }, { "Ungroup" }); },
          "PrcListControl.DeleteGroup PrcListControl.IsNodeActive RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetSelectedNodes" },
        { "delete by the menu",
          [](CWatchedPanel& scene) {
              scene.driver.Answer("Yes");
              scene.Choose({ "loose" }, { "Delete" });
              scene.AwaitJob();
          },
          "PrcListControl.GetNodeType PrcListControl.IsNodeActive RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetBusy RuntimeControl.SetSelectedNodes" },
        { "delete by the key",
          [](CWatchedPanel& scene) {
              scene.Click("loose");
              scene.Press(Qt::Key_Delete);
              scene.AwaitJob();
          },
          "PrcListControl.GetNodeType PrcListControl.IsNodeActive RuntimeControl.GetSelectedProcessors "
          "RuntimeControl.IsDeleteBlocked RuntimeControl.IsNodeInUse RuntimeControl.SetBusy RuntimeControl.SetSelectedNodes" },
    };
}

QList<SGesture> Others()
{
    return {
        { "drop into a group", [](CWatchedPanel& scene) { scene.Drop("loose", "Hall"); },
          "PrcListControl.MoveProcessor RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes" },
        { "drop beside", [](CWatchedPanel& scene) { scene.Drop("loose", "other"); },
          "PrcListControl.MoveProcessor RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes" },
        { "message",
          [](CWatchedPanel& scene) {
              scene.panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listGroup.removeFirst(); });
          },
          "" },
        { "the host updates", [](CWatchedPanel& scene) { scene.panel.pWidget->UpdateWidget(); }, "" },
        { "the host updates the tool bar", [](CWatchedPanel& scene) { scene.panel.View()->UpdateTreeToolbar(); }, "" },
        { "end", [](CWatchedPanel& scene) { scene.panel.Delete(); }, "ConfigControl.GetListFilePath PrcListControl.ExportList" },
    };
}

} // namespace

/// What the panel asks of the control library on the GUI thread, which waits for each answer: a list that is frozen. One call
/// more lets a slow library hold the window up at one more place.
class CGuiCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void theCallsOfEachGestureAreFrozen_data()
    {
        QTest::addColumn<int>("nGesture");
        for (int n = 0; n < listGesture.size(); ++n) {
            QTest::newRow(listGesture[n].szName) << n;
        }
    }

    void theCallsOfEachGestureAreFrozen()
    {
        QFETCH(int, nGesture);
        CWatchedPanel scene;
        scene.Take();

        listGesture[nGesture].fnDo(scene);

        QTRY_VERIFY(scene.driver.IsDone());
        QCOMPARE(scene.Take().join(' '), QString(listGesture[nGesture].szCalls));
    }

    void theCallsOffTheGuiThreadAreFrozen()
    {
        QStringList listCall;
        for (const SGesture& gesture : listGesture) {
            CWatchedPanel scene;
            gesture.fnDo(scene);
            QTRY_VERIFY(scene.driver.IsDone());
            listCall += scene.TakeOthers();
        }
        listCall.removeDuplicates();
        listCall.sort();
        QCOMPARE(listCall.join(' '),
                 QString("PrcBasicControl.AddProcessor PrcBasicControl.IsListLocked PrcBasicControl.IsRefreshBlocked "
                         "PrcBasicControl.RefreshProcessors PrcListControl.DeleteProcessor PrcListControl.GetDiscoveredTree "
                         "PrcListControl.GetSimulatorTree PreferenceControl.IsChiefMode ProjectManageControl.GetProjectInfo "
                         "RuntimeControl.GetSelectedNodes RuntimeControl.IsSimulatorPane RuntimeControl.PostMessage "
                         "RuntimeControl.SetBusy RuntimeControl.SetSelectedNodes"));
    }

    void aNewPanelCallsWhatIsFrozen()
    {
        CWatchedPanel scene;
        QCOMPARE(scene.Take().join(' '),
                 QString("PrcBasicControl.Attach PrcListControl.Attach PrcRuntimeControl.Attach PreferenceControl.Attach "
                         "ProjectManageControl.Attach ProtocalControl.Attach RuntimeControl.Attach "
                         "RuntimeControl.IsDeleteBlocked RuntimeControl.SetSelectedNodes"));
    }

private:
    const QList<SGesture> listGesture = Selections() + ToolBar() + ListFiles() + Menus() + Others();
};

PTV_TEST_MAIN(CGuiCallsTest)
#include "tst_guicalls.moc"
