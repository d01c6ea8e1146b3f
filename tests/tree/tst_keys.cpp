#include "CDialogDriver.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"

#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(true), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }).Expanded(false) },
                { Processor("loose").Expanded(true), Processor("last").Expanded(false) });
}

/// Takes what the tree does not.
class CParent : public QWidget
{
public:
    void keyPressEvent(QKeyEvent* event) override
    {
        listKey.append(event->key());
    }
    QList<int> listKey;
};

/// A tree in a parent that writes down the keys which reach it.
class CKeyFixture : public CTreeFixture
{
public:
    explicit CKeyFixture(const SProcessorAllNode& root = Site()) : CTreeFixture(root)
    {
        parent.resize(300, 600);
        pTree->setParent(&parent);
        parent.show();
        pTree->show();
        QApplication::setActiveWindow(&parent);
        pTree->setFocus();
        Q_UNUSED(QTest::qWaitForWindowExposed(&parent))
        Clear();
    }
    ~CKeyFixture()
    {
        pTree.reset();
    }

    CParent parent;
};

void Lock(CTreeFixture& fixture, bool bLocked)
{
    fixture.control.Set([bLocked](SControlAnswers& answers) { answers.bListLocked = bLocked; });
    fixture.ReadStore();
    fixture.Clear();
}

bool HasDeleted(const CTreeFixture& fixture)
{
    return fixture.control.Commands().contains("g_pRuntimeControl.SetBusy(false)");
}

/// The Delete key as the window system reports it, at that time of its clock.
void SendDelete(const CTreeFixture& fixture, QEvent::Type type, ulong nTime)
{
    QKeyEvent event(type, Qt::Key_Delete, Qt::NoModifier);
    event.setTimestamp(nTime);
    QApplication::sendEvent(fixture.pTree.data(), &event);
}

} // namespace

class CKeysTest : public QObject
{
    Q_OBJECT

private slots:
    void upAndDownGoFromNodeToNode_data()
    {
        QTest::addColumn<QString>("strFrom");
        QTest::addColumn<int>("nKey");
        QTest::addColumn<QString>("strTo");
        const int nUp = Qt::Key_Up, nDown = Qt::Key_Down;
        QTest::newRow("down from the root") << "all" << nDown << "Stage";
        QTest::newRow("down into an open group") << "Stage" << nDown << "alpha";
        QTest::newRow("down over an open information row") << "alpha" << nDown << "beta";
        QTest::newRow("down out of a group") << "beta" << nDown << "Hall";
        QTest::newRow("down over a folded group's members") << "Hall" << nDown << "loose";
        QTest::newRow("down from the last one wraps") << "last" << nDown << "all";
        QTest::newRow("up to the root") << "Stage" << nUp << "all";
        QTest::newRow("up to the group") << "alpha" << nUp << "Stage";
        QTest::newRow("up over an open information row") << "beta" << nUp << "alpha";
        QTest::newRow("up into an open group") << "Hall" << nUp << "beta";
        QTest::newRow("up over a folded group's members") << "loose" << nUp << "Hall";
        QTest::newRow("up from the last one") << "last" << nUp << "loose";
    }
    void upAndDownGoFromNodeToNode()
    {
        QFETCH(QString, strFrom);
        QFETCH(int, nKey);
        QFETCH(QString, strTo);
        CKeyFixture fixture;
        fixture.Select({ strFrom });
        fixture.Press(Qt::Key(nKey));
        QCOMPARE(fixture.Selected(), QStringList{ strTo });
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall(strTo == "all" ? "{null}" : strTo) });
        QCOMPARE(fixture.pTree->currentIndex(), fixture.pTree->selectedIndexes().first());
        QVERIFY(fixture.parent.listKey.isEmpty());
    }

    void upOnTheRootGoesToTheParentWidget()
    {
        CKeyFixture fixture;
        fixture.Select({ "all" });
        fixture.Press(Qt::Key_Up);
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
        QCOMPARE(fixture.parent.listKey, QList<int>{ Qt::Key_Up });
    }

    void downThroughTheWholePaneComesRoundToItsFirstRow()
    {
        CKeyFixture fixture;
        fixture.Select({ "all" });
        QStringList listWay;
        for (int i = 0; i < 8; ++i) {
            fixture.Press(Qt::Key_Down);
            listWay.append(fixture.Selected());
        }
        QCOMPARE(listWay, (QStringList{ "Stage", "alpha", "beta", "Hall", "loose", "last", "all", "Stage" }));
    }

    void rowsThatTheFilterHidesAreWalkedOver()
    {
        CKeyFixture fixture;
        fixture.pTree->SetSearchText("last");
        fixture.pTree->setCurrentIndex(fixture.Root());
        fixture.Clear();
        fixture.Press(Qt::Key_Down);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("Stage"));
    }

    void downFromAnInformationRowLandsOnTheFirstRow()
    {
        CKeyFixture fixture;
        fixture.pTree->setCurrentIndex(fixture.Info("loose"));
        fixture.Press(Qt::Key_Down);
        QCOMPARE(fixture.Selected(), QStringList{ "Stage" });
    }

    void upFromAnInformationRowLandsOnItsProcessor()
    {
        CKeyFixture fixture;
        fixture.pTree->setCurrentIndex(fixture.Info("loose"));
        fixture.Press(Qt::Key_Up);
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
    }

    void withTwoRowsSelectedTheArrowsGoToTheParentWidget_data()
    {
        QTest::addColumn<int>("nKey");
        for (const Qt::Key key : { Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down }) {
            QTest::addRow("%x", key) << int(key);
        }
    }
    void withTwoRowsSelectedTheArrowsGoToTheParentWidget()
    {
        QFETCH(int, nKey);
        CKeyFixture fixture;
        fixture.Select({ "alpha", "Hall" });
        fixture.Press(Qt::Key(nKey));
        QCOMPARE(fixture.Selected(), (QStringList{ "alpha", "Hall" }));
        QCOMPARE(fixture.parent.listKey, QList<int>{ nKey });
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void withNothingSelectedTheArrowsGoToTheParentWidget()
    {
        CKeyFixture fixture;
        fixture.pTree->clearSelection();
        fixture.Press(Qt::Key_Down);
        QCOMPARE(fixture.Selected(), QStringList());
        QCOMPARE(fixture.parent.listKey, QList<int>{ Qt::Key_Down });
    }

    void leftFoldsAnOpenRowAndRightOpensAFoldedOne_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<int>("nKey");
        QTest::addColumn<bool>("bExpanded");
        QTest::newRow("Left on an open group") << "Stage" << int(Qt::Key_Left) << false;
        QTest::newRow("Right on a folded group") << "Hall" << int(Qt::Key_Right) << true;
        QTest::newRow("Left on an open processor") << "alpha" << int(Qt::Key_Left) << false;
        QTest::newRow("Right on a folded processor") << "beta" << int(Qt::Key_Right) << true;
    }
    void leftFoldsAnOpenRowAndRightOpensAFoldedOne()
    {
        QFETCH(QString, strRow);
        QFETCH(int, nKey);
        QFETCH(bool, bExpanded);
        CKeyFixture fixture;
        fixture.Select({ strRow });
        fixture.Press(Qt::Key(nKey));
        QCOMPARE(fixture.pTree->isExpanded(fixture.Row(strRow)), bExpanded);
        QCOMPARE(fixture.Selected(), QStringList{ strRow });
        QCOMPARE(fixture.control.Commands(),
                 QStringList{ QString("g_pPrcListControl.SetExpanded(%1, %2)").arg(strRow, bExpanded ? "true" : "false") });
        QVERIFY(fixture.parent.listKey.isEmpty());
    }

    void leftOnAFoldedRowAndRightOnAnOpenOneGoToTheParentWidget_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<int>("nKey");
        QTest::newRow("Left on a folded group") << "Hall" << int(Qt::Key_Left);
        QTest::newRow("Right on an open group") << "Stage" << int(Qt::Key_Right);
        QTest::newRow("Left on a folded member") << "beta" << int(Qt::Key_Left);
        QTest::newRow("Right on an open processor") << "loose" << int(Qt::Key_Right);
    }
    void leftOnAFoldedRowAndRightOnAnOpenOneGoToTheParentWidget()
    {
        QFETCH(QString, strRow);
        QFETCH(int, nKey);
        CKeyFixture fixture;
        fixture.Select({ strRow });
        fixture.Press(Qt::Key(nKey));
        QCOMPARE(fixture.Selected(), QStringList{ strRow });
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(fixture.parent.listKey, QList<int>{ nKey });
    }

    void leftOnARowWithoutChildrenGoesToItsParentRow()
    {
        CKeyFixture fixture(Root({ Group("Empty").Expanded(false) }));
        fixture.Select({ "Empty" });
        fixture.Press(Qt::Key_Left);
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
    }

    void deleteKeyRemovesAGroupWithItsProcessorsWithoutAsking()
    {
        CKeyFixture fixture;
        fixture.Select({ "Stage" });
        const CDialogDriver driver;
        fixture.Press(Qt::Key_Delete);
        QTRY_VERIFY(HasDeleted(fixture));
        QCOMPARE(driver.Shown(), QStringList());
        QCOMPARE(fixture.control.CommandsWithThread(),
                 (QStringList{ "gui: g_pRuntimeControl.SetBusy(true)", "other: g_pPrcListControl.DeleteGroup(Stage, true)",
                               "other: " + SelectCall("{null}"), "other: g_pRuntimeControl.PostMessage(14)",
                               "other: g_pRuntimeControl.SetBusy(false)" }));
    }

    void deleteKeyAsksForARebuildAndPassesTheKeyOn()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        fixture.Press(Qt::Key_Delete);
        QCOMPARE(spy.count(), 1);
        QTRY_VERIFY(HasDeleted(fixture));
    }

    void deleteKeyIsDeadAfterAMenuHasDisabledDelete()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        Lock(fixture, true);
        QCOMPARE(fixture.Menu(fixture.Row("last")).last(), QStringLiteral("(Delete)"));
        Lock(fixture, false);
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        fixture.Press(Qt::Key_Delete);
        QCOMPARE(fixture.control.Calls(), QStringList());
        QCOMPARE(spy.count(), 0);
        QVERIFY2(fixture.parent.listKey.isEmpty(), "the key stops at the tree");
    }

    void deleteKeyLivesAgainAfterALaterMenu()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        Lock(fixture, true);
        fixture.Menu(fixture.Row("last"));
        Lock(fixture, false);
        fixture.Menu(fixture.Row("last"));
        fixture.Press(Qt::Key_Delete);
        QTRY_VERIFY(HasDeleted(fixture));
    }

    void deleteKeyOnALockedListDeletesNothingButStillAsksForARebuild()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        Lock(fixture, true);
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        fixture.Press(Qt::Key_Delete);
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(spy.count(), 1);
    }

    void aHeldDeleteKeyDeletesOnce()
    {
        CKeyFixture fixture;
        fixture.ConnectLikeTheView();
        fixture.Select({ "last" });
        fixture.Press(Qt::Key_Delete);
        QTRY_COMPARE(fixture.control.CallCount("SetBusy"), 2);
        fixture.Clear();
        fixture.parent.listKey.clear();
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        for (int n = 0; n < 50; ++n) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(fixture.pTree.data(), &event);
            QVERIFY(event.isAccepted());
        }
        QCOMPARE(spy.count(), 0);
        QCOMPARE(fixture.control.Calls(), QStringList());
        QVERIFY2(fixture.parent.listKey.isEmpty(), "the key stops at the tree");
    }

    void aRepeatThatTheToolkitTakesForAPressDeletesNothing()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        SendDelete(fixture, QEvent::KeyPress, 1000);
        QTRY_COMPARE(fixture.control.CallCount("SetBusy"), 2);
        fixture.Clear();
        for (const ulong nTime : { 1500ul, 1540ul, 1580ul }) {
            SendDelete(fixture, QEvent::KeyRelease, nTime);
            SendDelete(fixture, QEvent::KeyPress, nTime);
        }
        QCOMPARE(fixture.control.Calls(), QStringList());
        SendDelete(fixture, QEvent::KeyRelease, 1600);
        SendDelete(fixture, QEvent::KeyPress, 1700);
        QTRY_VERIFY(HasDeleted(fixture));
    }

    void afterAHeldDeleteKeyTheNextPressDeletes()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(fixture.pTree.data(), &event);
        fixture.Press(Qt::Key_Delete);
        QTRY_VERIFY(HasDeleted(fixture));
        QCOMPARE(fixture.control.CallCount("DeleteProcessor"), 1);
    }

    void deleteInAnOpenEditorDeletesNoNode_data()
    {
        QTest::addColumn<int>("nModifiers");
        for (const int nModifiers : { 0x00000000, 0x02000000, 0x04000000, 0x06000000, 0x08000000, 0x0A000000, 0x0C000000,
                                      0x0E000000, 0x10000000, 0x12000000, 0x14000000, 0x18000000, 0x1E000000, 0x20000000 }) {
            QTest::addRow("%08X", nModifiers) << nModifiers;
        }
    }
    void deleteInAnOpenEditorDeletesNoNode()
    {
        QFETCH(int, nModifiers);
        CKeyFixture fixture;
        fixture.Select({ "last" });
        fixture.Press(Qt::Key_F2);
        auto* const pEditor = fixture.pTree->findChild<QLineEdit*>();
        QVERIFY(pEditor && pEditor->hasFocus());
        fixture.parent.listKey.clear();
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        QTest::keyClick(pEditor, Qt::Key_Delete, Qt::KeyboardModifiers(nModifiers));
        QVERIFY(pEditor->hasFocus());
        QCOMPARE(spy.count(), 0);
        QCOMPARE(fixture.control.Calls(), QStringList());
        QVERIFY2(!fixture.parent.listKey.contains(Qt::Key_Delete), "the key stops at the tree");
    }

    void f2OpensTheEditorAlsoWhereTheMenuHasNoRename()
    {
        CKeyFixture fixture;
        fixture.Select({ "last" });
        QVERIFY(!fixture.Menu(fixture.Row("last")).contains("Rename"));
        fixture.Press(Qt::Key_F2);
        const auto* const pEditor = fixture.pTree->findChild<QLineEdit*>();
        QVERIFY(pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("last"));
    }

    void f2WithTwoRowsSelectedOpensNothing()
    {
        CKeyFixture fixture;
        fixture.Select({ "last", "loose" });
        fixture.Press(Qt::Key_F2);
        QVERIFY(!fixture.pTree->findChild<QLineEdit*>());
        fixture.Click(fixture.Row("last"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("last") });
    }

    void otherKeysGoToTheBaseClass()
    {
        CKeyFixture fixture;
        fixture.Select({ "Stage" });
        fixture.Press(Qt::Key_End);
        QVERIFY(fixture.pTree->currentIndex() == fixture.Row("last"));
        fixture.Press(Qt::Key_Minus);
        QVERIFY(fixture.parent.listKey.isEmpty() || !fixture.parent.listKey.contains(Qt::Key_End));
    }
};

PTV_TEST_MAIN(CKeysTest)
#include "tst_keys.moc"
