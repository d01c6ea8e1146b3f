#include "CDialogDriver.h"
#include "CMenuDriver.h"
#include "TestMain.h"
#include "TreeText.h"
#include "data/CProcessorTreeData.h"
#include "data/CProcessorTreeThread.h"
#include "fixtures/CTreeFixture.h"

#include <QDeadlineTimer>
#include <QDrag>
#include <QLineEdit>
#include <QScrollBar>
#include <QThread>

namespace {

constexpr int nChanges = 20;
constexpr int nNudgeMs = 1000;

SProcessorAllNode Site(int nState)
{
    QList<SProcessorNode> listMember;
    for (int i = 0; i < 40; ++i) {
        const bool bOnline = (i + nState) % 2 == 0;
        listMember.append(Processor(QStringLiteral("m%1").arg(i)).Online(bOnline).Expanded(i == 3));
    }
    return Root({ Group("Stage", listMember), Group("Hall", { Processor("gamma").Expanded(false) }).Expanded(false) },
                { Processor("loose").Online(nState % 2 == 0).Expanded(false) });
}

/// Changes of the devices, told by messages and read by the real worker, while the tree is in use.
class CStorm
{
public:
    explicit CStorm(CTreeFixture& fixtureIn) : fixture(fixtureIn)
    {
        pWorker = new CProcessorTreeThread;
        pWorker->moveToThread(&thread);
        QObject::connect(&thread, &QThread::started, pWorker, &CProcessorTreeThread::ThreadStart);
        QObject::connect(&thread, &QThread::finished, pWorker, &QObject::deleteLater);
        QObject::connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo, &thread, [this] {
            fixture.pTree->RefreshTree();
            if (!strSearch.isEmpty()) {
                fixture.pTree->SetSearchText(strSearch);
            }
            ++nRebuilds;
        });
        thread.start();
    }
    ~CStorm()
    {
        pWorker->ThreadExit();
        thread.quit();
        thread.wait();
    }

    /// Blows until each change has reached the rows.
    bool Blow()
    {
        for (int i = 1; i <= nChanges; ++i) {
            fixture.control.Set([&](SControlAnswers& answers) { answers.nodeDiscovered = Changed(answers.nodeDiscovered); });
            fixture.control.Raise(1);
            if (!WaitForRebuild(++nRaised)) {
                return false;
            }
        }
        return true;
    }

    int Rebuilds() const
    {
        return nRebuilds;
    }
    QString strSearch; ///< as in the search box, which the view applies again after each rebuild

private:
    /// A message that comes just before the worker sleeps waits in its queue for the next one. That is meant so; the
    /// library's message that makes nobody read is for it.
    bool WaitForRebuild(int nWanted)
    {
        const QDeadlineTimer deadline(nPatience);
        while (!QTest::qWaitFor([&] { return nRebuilds >= nWanted; }, nNudgeMs)) {
            if (deadline.hasExpired()) {
                return false;
            }
            fixture.control.Raise(59);
        }
        return true;
    }

    static SProcessorAllNode Changed(SProcessorAllNode root)
    {
        for (SProcessorNode& node : root.listGroup.first().listProcessor) {
            node.bOnline = !node.bOnline;
        }
        return root;
    }

    CTreeFixture& fixture;
    QThread thread;
    CProcessorTreeThread* pWorker;
    int nRaised = 0;
    int nRebuilds = 0;
};

QLineEdit* OpenEditor(CTreeFixture& fixture, const QString& strName)
{
    fixture.Select({ strName });
    fixture.Press(Qt::Key_F2);
    return fixture.pTree->findChild<QLineEdit*>();
}

} // namespace

/// Devices drop out and come back many times a second; the user goes on working.
class CStormTest : public QObject
{
    Q_OBJECT

private slots:
    void selectionAndExpansionStay()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        fixture.Select({ "m7", "Hall", "loose" });
        fixture.pTree->expand(fixture.Row("m5"));
        fixture.pTree->collapse(fixture.Row("m3"));
        const QString strBefore = TreeText(fixture.pTree.data());
        const QStringList listSelected = fixture.Selected();
        QVERIFY(storm.Blow());
        QCOMPARE(TreeText(fixture.pTree.data()), strBefore);
        QCOMPARE(fixture.Selected(), listSelected);
        QCOMPARE(fixture.control.CallCount("SetSelectedNodes"), 0);
    }

    void theFilterStays()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        storm.strSearch = "m1";
        fixture.pTree->SetSearchText("m1");
        const QString strBefore = TreeText(fixture.pTree.data());
        QVERIFY(strBefore.contains("[hidden]"));
        QVERIFY(storm.Blow());
        QCOMPARE(TreeText(fixture.pTree.data()), strBefore);
    }

    void theViewDoesNotScroll()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        fixture.pTree->verticalScrollBar()->setValue(333);
        QVERIFY(storm.Blow());
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 333);
    }

    void theKeyboardWalksOnFromTheSelectedRow()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        fixture.Select({ "m7" });
        QVERIFY(storm.Blow());
        fixture.Press(Qt::Key_Down);
        QCOMPARE(fixture.Selected(), QStringList{ "m8" });
        fixture.Press(Qt::Key_Up);
        QCOMPARE(fixture.Selected(), QStringList{ "m7" });
    }

    void anOpenRenameKeepsTextAndFocusWhileNoRowChanges()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        QLineEdit* const pEditor = OpenEditor(fixture, "m7");
        QTest::keyClicks(pEditor, "new na");
        for (int i = 1; i <= nChanges; ++i) {
            fixture.control.Set([i](SControlAnswers& answers) { answers.bListLocked = i % 2 == 1; });
            fixture.control.Raise(7);
            QTRY_COMPARE(g_pProcessorTreeData->IsListLocked(), i % 2 == 1);
        }
        QVERIFY(pEditor->hasFocus());
        QTest::keyClicks(pEditor, "me");
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(storm.Rebuilds(), 0);
        QCOMPARE(fixture.control.Commands(), QStringList{ "g_pPrcBasicControl.RenameProcessor(m7, \"new name\")" });
    }

    void anOpenRenameEndsWithItsRowUncommittedAndTheTreeWorksOn()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        QTest::keyClicks(OpenEditor(fixture, "m7"), "lost");
        QVERIFY(storm.Blow());
        QTRY_VERIFY(!fixture.pTree->findChild<QLineEdit*>());
        QVERIFY(!QApplication::focusWidget());
        QCOMPARE(fixture.Selected(), QStringList{ "m7" });
        QCOMPARE(fixture.control.Commands(), QStringList());
        fixture.Click(fixture.Row("m8"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("m8") });
    }

    void aMenuThatIsOpenActsOnTheSameNodesAfterwards()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        fixture.Select({ "m7", "m8" });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            QVERIFY(storm.Blow());
            QVERIFY(pMenu->isVisible());
            CMenuDriver::Choose(pMenu, { "Move to group", "Hall" });
        });
        fixture.RightClick(fixture.At(fixture.Row("m8")));
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ MoveCall("m7", "Hall"), MoveCall("m8", "Hall"), "g_pPrcListControl.SetExpanded(Hall, true)" }));
    }

    void aQuestionThatIsOpenDeletesTheSameNodesAfterwards()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        fixture.Select({ "m7" });
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(storm.Blow());
            CDialogDriver::Press(pDialog, "Yes");
        });
        fixture.pTree->DeleteNode(true);
        QTRY_COMPARE(fixture.control.CallCount("SetBusy"), 2);
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pRuntimeControl.SetBusy(true)", "g_pPrcListControl.DeleteProcessor(m7, false)",
                               SelectCall("m6"), "g_pRuntimeControl.PostMessage(14)", "g_pRuntimeControl.SetBusy(false)" }));
    }

    void aPressThatIsHeldStillStartsItsDrag()
    {
        CTreeFixture fixture(Site(0));
        CStorm storm(fixture);
        const QPoint pos = fixture.At(fixture.Row("m7"));
        QTest::mousePress(fixture.pTree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QVERIFY(storm.Blow());
        QMouseEvent move(QEvent::MouseMove, pos + QPoint(9, 0), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(fixture.pTree->viewport(), &move);
        QCOMPARE(fixture.pTree->findChildren<QDrag*>().size(), 1);
        QCOMPARE(fixture.Selected(), QStringList{ "m7" });
    }

    void aListAtTheLimitsIsRebuiltWithEverythingSelected()
    {
        QList<SProcessorGroupNode> listGroup;
        std::vector<QUuid> vecId;
        for (int i = 0; i < 256; ++i) {
            const QString strName = QStringLiteral("%1").arg(i);
            listGroup.append(Group("G" + strName, { Processor("p" + strName).Expanded(false) }));
            vecId.push_back(GroupId("G" + strName));
            vecId.push_back(ProcessorId("p" + strName));
        }
        CTreeFixture fixture(Root(listGroup), vecId);
        fixture.pTree->RefreshTree();
        QCOMPARE(fixture.pTree->selectedIndexes().size(), 512);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }
};

PTV_TEST_MAIN(CStormTest)
#include "tst_storm.moc"
