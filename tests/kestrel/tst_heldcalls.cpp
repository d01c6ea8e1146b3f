#include "CDialogDriver.h"
#include "CFaultWindow.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QAbstractButton>
#include <QAction>
#include <QTreeView>

namespace {

constexpr int nEvents = 100;

QWidget* Panel(const CFaultWindow& scene)
{
    return scene.kestrel.pPanel->GetWidget();
}

/// Has the call hang until Free, or until the program ends.
void Hang(const CFaultWindow& scene, const QString& strCall)
{
    scene.Break(QStringLiteral("'do':'hang','call':'%1','for':3600").arg(strCall));
}

void Free(const CFaultWindow& scene, const QString& strCall)
{
    scene.Break(QStringLiteral("'do':'hang','call':'%1','for':0").arg(strCall));
}

void Delete(const CFaultWindow& scene, const QString& strNode)
{
    scene.kestrel.Select({ strNode });
    scene.kestrel.Key(Qt::Key_Delete);
}

void AddProcessor(const CFaultWindow& scene)
{
    CDialogDriver driver;
    driver.Answer("DialogAccept");
    PanelAccess::FindButton(Panel(scene), QStringLiteral("Add a processor"))->click();
}

void Import(const CFaultWindow& scene)
{
    const QString strPath = scene.kestrel.folder.filePath(QStringLiteral("in.kvtl"));
    QCOMPARE(g_pPrcListControl->ExportList(strPath, 0), 0);
    CDialogDriver driver;
    driver.Answer("ButtonYes");
    driver.AnswerByFile(strPath);
    PanelAccess::FindAction(Panel(scene), "CProcessorTreeToolBar", "Import")->trigger();
}

/// What the user does so that the panel makes the call off the GUI thread.
void MakeCall(const CFaultWindow& scene, const QString& strCall)
{
    if (strCall == "PrcBasicControl.RefreshProcessors" || strCall == "RuntimeControl.SetBusy") {
        Panel(scene)->findChild<QAbstractButton*>(QStringLiteral("IconButtonTitle"))->click();
    } else if (strCall == "PrcListControl.DeleteProcessor" || strCall == "RuntimeControl.SetSelectedNodes"
               || strCall == "RuntimeControl.PostMessage") {
        Delete(scene, QStringLiteral("Door 1"));
    } else if (strCall == "PrcListControl.DeleteGroup") {
        Delete(scene, QStringLiteral("Main stage"));
    } else if (strCall == "PrcBasicControl.AddProcessor") {
        AddProcessor(scene);
    } else {
        scene.kestrel.pHost->OpenProject(QStringLiteral("Aurora"));
    }
}

/// How many of the events that are posted one after the other are processed while the call is under way.
int CountEvents(CFaultWindow& scene, const QString& strCall)
{
    int nProcessed = 0;
    QObject context;
    for (int n = 0; n < nEvents; ++n) {
        QMetaObject::invokeMethod(
            &context, [&] { nProcessed += scene.commands.IsRunning(strCall) ? 1 : 0; }, Qt::QueuedConnection);
    }
    QCoreApplication::processEvents();
    return nProcessed;
}

void AddCalls()
{
    QTest::addColumn<QString>("strCall");
    for (const QString& strCall : ControlCalls::GetHeld()) {
        QTest::newRow(qPrintable(strCall)) << strCall;
    }
}

/// The user closes the window while a call hangs. What the library had then; empty when the window stayed. What ended only when
/// the call is free would end this program by its time limit.
QString Close(CFaultWindow& scene, const QString& strCall)
{
    const bool bHeld = QTest::qWaitFor([&] { return scene.commands.IsRunning(strCall); }, nPatience);
    const QString strTruth = bHeld ? CListWindow::ListText() : QString();
    QTimer::singleShot(0, &scene.kestrel.window, &QWidget::close);
    QApplication::exec();
    return scene.kestrel.window.isVisible() ? QString() : strTruth;
}

} // namespace

/// The panel while calls of the library are late or do not come back.
class CHeldCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void theWindowLivesWhileACallHangs_data()
    {
        AddCalls();
    }

    void theWindowLivesWhileACallHangs()
    {
        QFETCH(QString, strCall);
        CFaultWindow scene;
        Hang(scene, strCall);

        MakeCall(scene, strCall);
        QTRY_VERIFY(scene.commands.IsRunning(strCall));

        QCOMPARE(CountEvents(scene, strCall), nEvents);
        PanelAccess::ClickRow(scene.Tree(), scene.kestrel.Row("Door 3"), Qt::NoModifier);
        QCOMPARE(scene.commands.Take().constLast(), QString("gui: RuntimeControl.SetSelectedNodes([Door 3])"));
        QVERIFY(scene.commands.IsRunning(strCall));
        Free(scene, strCall);
        QTRY_VERIFY(!scene.commands.IsRunning(strCall));
        QVERIFY(scene.Settle());
        QVERIFY2(scene.IsTrueAfterTheNextMessage(), qPrintable(scene.Shown() + "\n" + scene.Truth()));
    }

    void theOldStateStandsUntilTheReadingComesBack()
    {
        const QString strCall = "PrcListControl.GetDiscoveredTree";
        CFaultWindow scene;
        const QString strOld = scene.Shown();
        Hang(scene, strCall);
        g_pPrcBasicControl->RenameProcessor(CListWindow::Id("Door 1"), "Gate");
        QTRY_VERIFY(scene.commands.IsRunning(strCall));
        QVERIFY(scene.Truth().contains("Gate")); // on the GUI thread, where nothing is held
        CountEvents(scene, strCall);

        QCOMPARE(scene.Shown(), strOld);

        Free(scene, strCall);
        QTRY_COMPARE(scene.Shown(), scene.Truth());
        QVERIFY(scene.Shown().contains("Gate"));
    }

    void theWindowClosesInOrderWhileACallHangs_data()
    {
        AddCalls();
    }

    void theWindowClosesInOrderWhileACallHangs()
    {
        QFETCH(QString, strCall);
        const QString strKept = [&] {
            CFaultWindow scene;
            Hang(scene, strCall);
            MakeCall(scene, strCall);
            return Close(scene, strCall);
        }();
        QVERIFY(strKept.contains("Wall 1"));
        QVERIFY(!g_pRuntimeControl); // the library has ended behind the panel
    }

    // Behind the selection its job announces the end of the import through the panel.
    void theWindowClosesInOrderWhileTheJobOfAnImportHangs()
    {
        const QString strKept = [] {
            CFaultWindow scene;
            Hang(scene, "RuntimeControl.SetSelectedNodes");
            Import(scene);
            return Close(scene, "RuntimeControl.SetSelectedNodes");
        }();
        QVERIFY(strKept.contains("Wall 1"));
        QVERIFY(!g_pRuntimeControl);
    }

    void aLateCallOnlyTakesLonger_data()
    {
        AddCalls();
    }

    void aLateCallOnlyTakesLonger()
    {
        constexpr int nLate = 200; // ms
        QFETCH(QString, strCall);
        CFaultWindow scene;
        scene.Break(QStringLiteral("'do':'latency','call':'%1','ms':%2,'for':3600").arg(strCall).arg(nLate));

        MakeCall(scene, strCall);

        QTRY_VERIFY(scene.commands.GetLongest(strCall) >= std::chrono::milliseconds(nLate));
        QVERIFY(scene.Settle());
        QVERIFY2(scene.IsTrueAfterTheNextMessage(), qPrintable(scene.Shown() + "\n" + scene.Truth()));
    }

    void lateAnswersComeInTheEnd()
    {
        CFaultWindow scene;
        scene.Break("'do':'latency','call':'PrcListControl.GetDiscoveredTree','ms':300,'for':3600");
        const int nBefore = scene.commands.Count("PrcListControl.GetDiscoveredTree");
        g_pPrcListControl->RenameGroup(CListWindow::Id("Empty"), "Foyer");

        QTRY_VERIFY(scene.commands.IsRunning("PrcListControl.GetDiscoveredTree"));
        QCOMPARE(CountEvents(scene, "PrcListControl.GetDiscoveredTree"), nEvents);
        QVERIFY(scene.kestrel.Row("Foyer").isValid());
        QVERIFY(!scene.Shown().contains("Foyer"));

        QTRY_COMPARE(scene.Shown(), scene.Truth());
        QVERIFY(scene.commands.Count("PrcListControl.GetDiscoveredTree") > nBefore);
    }

    void aLateDeletionIsShownWhenItIsDone()
    {
        CFaultWindow scene;
        scene.Break("'do':'latency','call':'PrcListControl.DeleteProcessor','ms':300,'for':3600");
        scene.kestrel.Select({ "Door 1" });
        scene.kestrel.Key(Qt::Key_Delete);
        QTRY_VERIFY(scene.commands.IsRunning("PrcListControl.DeleteProcessor"));

        QVERIFY(scene.Shown().contains("Door 1"));

        QVERIFY(scene.Settle());
        QTRY_VERIFY(!scene.Shown().contains("Door 1"));
        QTRY_COMPARE(scene.Shown(), scene.Truth());
        QVERIFY2(scene.HasSent({ "gui: RuntimeControl.SetSelectedNodes([Door 1])", "gui: RuntimeControl.SetBusy(true)",
                                 "other: PrcListControl.DeleteProcessor(Door 1, false)",
                                 "other: RuntimeControl.SetSelectedNodes([Empty])", "other: RuntimeControl.PostMessage(14)",
                                 "other: RuntimeControl.SetBusy(false)" }),
                 qPrintable(scene.commands.Get().join('\n')));
    }
};

PTV_TEST_MAIN(CHeldCallsTest)
#include "tst_heldcalls.moc"
