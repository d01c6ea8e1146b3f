#include "CFilledStore.h"
#include "CRefreshFixture.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "nodes/EnNodeType.h"

#include <QDateTime>

namespace {

using AnswersChange = CStoreFixture::FnAnswers;
using TreeChange = std::function<void(SProcessorAllNode&)>;

/// Keeps the records as they were handed over, and answers with a name.
class CProjectProbe final : public IProjectManageControl
{
public:
    CProjectProbe() : pInner(std::exchange(g_pProjectManageControl, this)) { }
    ~CProjectProbe()
    {
        g_pProjectManageControl = pInner;
    }
    Q_DISABLE_COPY(CProjectProbe)

    void Attach(CObserver* pObserver) override
    {
        pInner->Attach(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        pInner->Detach(pObserver);
    }
    void GetProjectInfo(SProjectInfo& info) override
    {
        listInfo.append(info);
        info.strName = strName;
        info.idProject = ProcessorId("project");
        info.nYear = 1;
    }

    std::string strName;
    QList<SProjectInfo> listInfo;

private:
    IProjectManageControl* pInner;
};

} // namespace

Q_DECLARE_METATYPE(AnswersChange)
Q_DECLARE_METATYPE(TreeChange)
Q_DECLARE_METATYPE(std::vector<QUuid>)

/// One reading of the control library: what is asked, stored and announced. On one thread.
class CRefreshTest : public QObject
{
    Q_OBJECT

private slots:
    void theLibraryIsAskedNineThingsInOneOrder()
    {
        CRefreshFixture fixture;
        fixture.control.ClearJournal();
        fixture.store.Refresh();
        const QStringList listExpected{ "g_pPrcListControl.GetDiscoveredTree()",     "g_pPrcListControl.GetSimulatorTree()",
                                        "g_pRuntimeControl.GetSelectedNodes(false)", "g_pRuntimeControl.GetSelectedNodes(true)",
                                        "g_pPrcBasicControl.IsListLocked()",         "g_pPrcBasicControl.IsRefreshBlocked()",
                                        "g_pProjectManageControl.GetProjectInfo()",  "g_pPreferenceControl.IsChiefMode()",
                                        "g_pRuntimeControl.IsSimulatorPane()" };
        QCOMPARE(fixture.control.Calls(), listExpected);
    }

    void theFirstRefreshAnnouncesTheSelectionWhateverItIs()
    {
        for (const bool bSimulator : { false, true }) {
            CControlDouble control;
            control.Set([bSimulator](SControlAnswers& answers) { answers.bSimulatorPane = bSimulator; });
            CProcessorTreeData store;
            CSignalLog log(&store);
            store.Refresh();
            QCOMPARE(log.Take(), listSelection);
            QVERIFY(store.GetSelectedNodes(false).empty());
            QVERIFY(store.GetSelectedNodes(true).empty());
            store.Refresh();
            QCOMPARE(log.Take(), listNothing);
        }
    }

    void theFirstRefreshAnnouncesMoreOnlyWhenThereIsMore_data()
    {
        QTest::addColumn<AnswersChange>("fnChange");
        QTest::addColumn<QStringList>("listSignal");
        QTest::newRow("project") << AnswersChange([](SControlAnswers& answers) { answers.strProject = "Opera"; })
                                 << listSelection + listTitle;
        QTest::newRow("tree") << AnswersChange([](SControlAnswers& answers) { answers.nodeDiscovered = DiscoveredTree(); })
                              << listNodeInfo + listSelection;
        QTest::newRow("tree of the other pane")
            << AnswersChange([](SControlAnswers& answers) { answers.nodeSimulator = SimulatorTree(); }) << listSelection;
        QTest::newRow("lock") << AnswersChange([](SControlAnswers& answers) { answers.bListLocked = true; })
                              << listButton + listSelection;
        QTest::newRow("block") << AnswersChange([](SControlAnswers& answers) { answers.bRefreshBlocked = true; })
                               << listButton + listSelection;
        QTest::newRow("chief mode") << AnswersChange([](SControlAnswers& answers) { answers.bChiefMode = true; })
                                    << listChief + listSelection;
    }

    void theFirstRefreshAnnouncesMoreOnlyWhenThereIsMore()
    {
        QFETCH(AnswersChange, fnChange);
        CControlDouble control;
        control.Set(fnChange);
        CProcessorTreeData store;
        CSignalLog log(&store);
        store.Refresh();
        QTEST(log.Take(), "listSignal");
    }

    void nothingNewIsNothingSaid()
    {
        CRefreshFixture fixture;
        QCOMPARE(fixture.Refresh(), listNothing);
        const auto fnSameAgain = [](SControlAnswers& answers) {
            answers.nodeDiscovered = DiscoveredTree();
            answers.nodeSimulator = SimulatorTree();
        };
        QCOMPARE(fixture.RefreshAfter(fnSameAgain), listNothing);
    }

    void nothingNewKeepsTheStoresLists()
    {
        CRefreshFixture fixture;
        const SProcessorAllNode nodeBefore = CurrentTree(fixture.store);
        fixture.RefreshAfter([](SControlAnswers& answers) { answers.nodeDiscovered = DiscoveredTree(); });
        const SProcessorAllNode nodeAfter = CurrentTree(fixture.store);
        QVERIFY(nodeAfter.listGroup.isSharedWith(nodeBefore.listGroup));
        QVERIFY(nodeAfter.listProcessor.isSharedWith(nodeBefore.listProcessor));
    }

    void changesAreAnnouncedOnceAndInOrder_data()
    {
        QTest::addColumn<bool>("bSimulator");
        QTest::addColumn<int>("nChanges");
        QTest::addColumn<QStringList>("listSignal");
        const char* const arrName[] = { "chief", "tree", "commands", "selection", "title", "other tree", "other selection" };
        for (int nRow = 0; nRow < 256; ++nRow) {
            QStringList listName{ nRow & 128 ? "simulator:" : "discovered:" };
            for (int i = 0; i < 7; ++i) {
                listName += nRow & (1 << i) ? QStringList(arrName[i]) : QStringList();
            }
            QStringList listSignal;
            listSignal += nRow & 1 ? listChief : listNothing;
            listSignal += nRow & 2 ? listNodeInfo : nRow & 4 ? listButton : listNothing;
            listSignal += nRow & 8 ? listSelection : listNothing;
            listSignal += nRow & 16 ? listTitle : listNothing;
            QTest::newRow(qPrintable(listName.join(' '))) << bool(nRow & 128) << (nRow & 127) << listSignal;
        }
    }

    void changesAreAnnouncedOnceAndInOrder()
    {
        QFETCH(bool, bSimulator);
        QFETCH(int, nChanges);
        CRefreshFixture fixture;
        fixture.RefreshAfter([=](SControlAnswers& answers) { answers.bSimulatorPane = bSimulator; });
        const QStringList listSignal = fixture.RefreshAfter([=](SControlAnswers& answers) {
            answers.bChiefMode = nChanges & 1;
            answers.bListLocked = nChanges & 4;
            answers.strProject = nChanges & 16 ? "Ballet" : "Opera";
            if (nChanges & 2) {
                answers.Tree(bSimulator).listProcessor[0].bOnline = true;
            }
            if (nChanges & 8) {
                answers.Selection(bSimulator) = { QUuid() };
            }
            if (nChanges & 32) {
                answers.Tree(!bSimulator).listGroup[0].bExpanded ^= true;
            }
            if (nChanges & 64) {
                answers.Selection(!bSimulator).clear();
            }
        });
        QTEST(listSignal, "listSignal");
        const SControlAnswers answers = fixture.control.Answers();
        QVERIFY(IsSame(TreeOfPane(fixture.store, false), answers.nodeDiscovered));
        QVERIFY(IsSame(TreeOfPane(fixture.store, true), answers.nodeSimulator));
        QCOMPARE(fixture.store.GetSelectedNodes(false), answers.vecDiscoveredSelection);
        QCOMPARE(fixture.store.GetSelectedNodes(true), answers.vecSimulatorSelection);
        QCOMPARE(fixture.store.IsListLocked(), answers.bListLocked);
        QCOMPARE(fixture.store.IsRefreshEnabled(), !answers.bListLocked);
        QCOMPARE(fixture.store.IsChiefMode(), answers.bChiefMode);
        QCOMPARE(fixture.store.GetProjectName(), answers.strProject);
        QCOMPARE(fixture.Refresh(), listNothing);
    }

    void aChangeOfTheTreeIsAnyChangeOfANodeOrOfTheOrder_data()
    {
        using Fn = TreeChange;
        QTest::addColumn<Fn>("fnChange");
        QTest::addColumn<bool>("bChanged");
        QTest::newRow("root's expansion") << Fn([](SProcessorAllNode& node) { node.bExpanded = false; }) << true;
        QTest::newRow("root's name") << Fn([](SProcessorAllNode& node) { node.strName = "All"; }) << false;
        QTest::newRow("root's kind") << Fn([](SProcessorAllNode& node) { node.nNodeType = NodeInfo; }) << false;
        QTest::newRow("root's name and expansion") << Fn([](SProcessorAllNode& node) {
            node.strName = "All";
            node.nNodeType = NodeInfo;
            node.bExpanded = false;
        }) << true;
        QTest::newRow("group's expansion") << Fn([](SProcessorAllNode& node) { node.listGroup[1].bExpanded = false; }) << true;
        QTest::newRow("group's name") << Fn([](SProcessorAllNode& node) { node.listGroup[1].strName = "Pit"; }) << true;
        QTest::newRow("group's Chief") << Fn([](SProcessorAllNode& node) { node.listGroup[0].idChief = ProcessorId("a"); })
                                       << true;
        QTest::newRow("group's numbers") << Fn([](SProcessorAllNode& node) { node.listGroup[0].setAux = { 1 }; }) << true;
        QTest::newRow("order of groups") << Fn([](SProcessorAllNode& node) { node.listGroup.move(0, 2); }) << true;
        QTest::newRow("group gone") << Fn([](SProcessorAllNode& node) { node.listGroup.removeLast(); }) << true;
        QTest::newRow("group new") << Fn([](SProcessorAllNode& node) { node.listGroup.append(Group("Pit")); }) << true;
        QTest::newRow("member's expansion") << Fn([](SProcessorAllNode& node) {
            node.listGroup[0].listProcessor[1].bExpanded = false;
        }) << true;
        QTest::newRow("order of members") << Fn([](SProcessorAllNode& node) { node.listGroup[0].listProcessor.move(0, 1); })
                                          << true;
        QTest::newRow("member leaves its group")
            << Fn([](SProcessorAllNode& node) { node.listProcessor.append(node.listGroup[0].listProcessor.takeLast()); }) << true;
        QTest::newRow("processor comes online")
            << Fn([](SProcessorAllNode& node) { node.listProcessor[1].bOnline = true; }) << true;
        QTest::newRow("processor's aux id") << Fn([](SProcessorAllNode& node) {
            node.listProcessor[1].idAux = ProcessorId("aux");
        }) << true;
        QTest::newRow("processor's port") << Fn([](SProcessorAllNode& node) { node.listProcessor[1].nPortB = 1; }) << true;
        QTest::newRow("processor's kind") << Fn([](SProcessorAllNode& node) { node.listProcessor[1].nNodeType = 9; }) << false;
        QTest::newRow("order of processors") << Fn([](SProcessorAllNode& node) { node.listProcessor.move(0, 1); }) << true;
        QTest::newRow("all gone") << Fn([](SProcessorAllNode& node) { node = SProcessorAllNode(); }) << true;
    }

    void aChangeOfTheTreeIsAnyChangeOfANodeOrOfTheOrder()
    {
        QFETCH(TreeChange, fnChange);
        QFETCH(bool, bChanged);
        for (const bool bSimulator : { false, true }) {
            CRefreshFixture fixture;
            const auto fnPane = [bSimulator](SControlAnswers& answers) {
                answers.Tree(bSimulator) = DiscoveredTree();
                answers.bSimulatorPane = bSimulator;
            };
            fixture.RefreshAfter(fnPane);
            const auto fnTree = [&](SControlAnswers& answers) { fnChange(answers.Tree(bSimulator)); };
            QCOMPARE(fixture.RefreshAfter(fnTree), bChanged ? listNodeInfo : listNothing);
            const SProcessorAllNode nodeExpected = bChanged ? fixture.control.Answers().Tree(bSimulator) : DiscoveredTree();
            QVERIFY(IsSame(CurrentTree(fixture.store), nodeExpected));
        }
    }

    void aSelectionChangesBySizeIdOrOrder_data()
    {
        using Ids = std::vector<QUuid>;
        QTest::addColumn<Ids>("vecId");
        QTest::addColumn<bool>("bChanged");
        QTest::newRow("the same") << Ids{ ProcessorId("a"), ProcessorId("d") } << false;
        QTest::newRow("other order") << Ids{ ProcessorId("d"), ProcessorId("a") } << true;
        QTest::newRow("one more") << Ids{ ProcessorId("a"), ProcessorId("d"), ProcessorId("e") } << true;
        QTest::newRow("one less") << Ids{ ProcessorId("a") } << true;
        QTest::newRow("another") << Ids{ ProcessorId("a"), ProcessorId("e") } << true;
        QTest::newRow("root") << Ids{ QUuid() } << true;
        QTest::newRow("none") << Ids{} << true;
    }

    void aSelectionChangesBySizeIdOrOrder()
    {
        QFETCH(std::vector<QUuid>, vecId);
        QFETCH(bool, bChanged);
        CRefreshFixture fixture;
        const auto fnSelect = [&](SControlAnswers& answers) { answers.vecDiscoveredSelection = vecId; };
        QCOMPARE(fixture.RefreshAfter(fnSelect), bChanged ? listSelection : listNothing);
        QCOMPARE(fixture.store.GetSelectedNodes(), vecId);
    }

    void commandsFollowTheLockAndTheBlock_data()
    {
        QTest::addColumn<int>("nBefore");
        QTest::addColumn<int>("nAfter");
        for (int nBefore = 0; nBefore < 4; ++nBefore) {
            for (int nAfter = 0; nAfter < 4; ++nAfter) {
                QTest::addRow("lock %d, block %d to lock %d, block %d", nBefore & 1, nBefore >> 1, nAfter & 1, nAfter >> 1)
                    << nBefore << nAfter;
            }
        }
    }

    void commandsFollowTheLockAndTheBlock()
    {
        QFETCH(int, nBefore);
        QFETCH(int, nAfter);
        const auto fnState = [](int nState) {
            return [nState](SControlAnswers& answers) {
                answers.bListLocked = nState & 1;
                answers.bRefreshBlocked = nState & 2;
            };
        };
        CRefreshFixture fixture;
        fixture.RefreshAfter(fnState(nBefore));
        const bool bChanged = (nBefore & 1) != (nAfter & 1) || (nBefore == 0) != (nAfter == 0);
        QCOMPARE(fixture.RefreshAfter(fnState(nAfter)), bChanged ? listButton : listNothing);
        QCOMPARE(fixture.store.IsListLocked(), bool(nAfter & 1));
        QCOMPARE(fixture.store.IsRefreshEnabled(), nAfter == 0);
    }

    void theProjectNameIsReadAsUtf8()
    {
        CRefreshFixture fixture;
        CProjectProbe probe;
        probe.strName = "\xC3\x9C"
                        "bung \xE6\xB7\xB7";
        QCOMPARE(fixture.Refresh(), listTitle);
        QCOMPARE(fixture.store.GetProjectName(), QString::fromUtf8("Übung 混"));
        QCOMPARE(fixture.Refresh(), listNothing);
    }

    void aProjectThatIsClosedIsAnnounced()
    {
        CRefreshFixture fixture;
        QCOMPARE(fixture.store.GetProjectName(), QString("Opera"));
        QCOMPARE(fixture.RefreshAfter([](SControlAnswers& answers) { answers.strProject.clear(); }), listTitle);
        QCOMPARE(fixture.store.GetProjectName(), QString());
        QCOMPARE(fixture.Refresh(), listNothing);
    }

    void theChiefModeIsAnnouncedBothWays()
    {
        CRefreshFixture fixture;
        for (const bool bChief : { true, false }) {
            const auto fnMode = [bChief](SControlAnswers& answers) { answers.bChiefMode = bChief; };
            QCOMPARE(fixture.RefreshAfter(fnMode), listChief);
            QCOMPARE(fixture.store.IsChiefMode(), bChief);
            QCOMPARE(fixture.Refresh(), listNothing);
        }
    }

    void theProjectRecordIsNewAndCarriesTheTimeOfTheReading()
    {
        CRefreshFixture fixture;
        CProjectProbe probe;
        probe.strName = "Opera";
        const qint64 nBefore = QDateTime::currentSecsSinceEpoch();
        fixture.Refresh();
        fixture.Refresh();
        const qint64 nAfter = QDateTime::currentSecsSinceEpoch();
        QCOMPARE(probe.listInfo.size(), 2);
        for (const SProjectInfo& info : std::as_const(probe.listInfo)) {
            QVERIFY(info.idProject.isNull());
            QVERIFY(info.strName.empty());
            QCOMPARE(info.nReserved1 + info.nReserved2 + info.nReserved3, quint64(0));
            const QDateTime time(QDate(info.nYear, info.nMonth, info.nDay), QTime(info.nHour, info.nMinute, info.nSecond));
            QVERIFY(time.toSecsSinceEpoch() >= nBefore);
            QVERIFY(time.toSecsSinceEpoch() <= nAfter);
        }
    }
};

PTV_TEST_MAIN_CORE(CRefreshTest)

#include "tst_refresh.moc"
