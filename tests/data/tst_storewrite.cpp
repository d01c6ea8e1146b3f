#include "CFilledStore.h"
#include "TestMain.h"
#include "nodes/EnNodeType.h"

#include <QSignalSpy>

#include <functional>

Q_DECLARE_METATYPE(SProcessorAllNode)
Q_DECLARE_METATYPE(std::vector<QUuid>)
Q_DECLARE_METATYPE(std::function<bool*(SProcessorAllNode&)>)

/// What the GUI thread writes into the store between two refreshes.
class CStoreWriteTest : public QObject
{
    Q_OBJECT

private slots:
    void theSelectionIsThatOfThePaneOrOfTheOneAskedFor()
    {
        CFilledStore store;
        const std::vector<QUuid> vecDiscovered{ ProcessorId("a"), ProcessorId("d") };
        const std::vector<QUuid> vecSimulator{ GroupId("Lab") };
        QCOMPARE(store.GetSelectedNodes(), vecDiscovered);
        QCOMPARE(store.GetSelectedNodes(false), vecDiscovered);
        QCOMPARE(store.GetSelectedNodes(true), vecSimulator);
        store.SetSimulatorPane(true);
        QCOMPARE(store.GetSelectedNodes(), vecSimulator);
        QCOMPARE(store.GetSelectedNodes(false), vecDiscovered);
        QCOMPARE(store.GetSelectedNodes(true), vecSimulator);
    }

    void aSelectionIsNewWhenSizeOrOrderDiffers_data()
    {
        const QUuid a = ProcessorId("a");
        const QUuid b = ProcessorId("b");
        using Ids = std::vector<QUuid>;
        QTest::addColumn<Ids>("vecBefore");
        QTest::addColumn<Ids>("vecAfter");
        QTest::addColumn<bool>("bNew");
        QTest::newRow("the same") << Ids{ a, b } << Ids{ a, b } << false;
        QTest::newRow("both empty") << Ids{} << Ids{} << false;
        QTest::newRow("the root again") << Ids{ QUuid() } << Ids{ QUuid() } << false;
        QTest::newRow("other order") << Ids{ a, b } << Ids{ b, a } << true;
        QTest::newRow("one more") << Ids{ a } << Ids{ a, b } << true;
        QTest::newRow("one less") << Ids{ a, b } << Ids{ a } << true;
        QTest::newRow("another") << Ids{ a } << Ids{ b } << true;
        QTest::newRow("last differs") << Ids{ a, a } << Ids{ a, b } << true;
        QTest::newRow("now empty") << Ids{ a } << Ids{} << true;
        QTest::newRow("root after nothing") << Ids{} << Ids{ QUuid() } << true;
    }

    void aSelectionIsNewWhenSizeOrOrderDiffers()
    {
        QFETCH(std::vector<QUuid>, vecBefore);
        QFETCH(std::vector<QUuid>, vecAfter);
        CProcessorTreeData store;
        QVERIFY(store.SetSelectedNodes(vecBefore));
        QTEST(store.SetSelectedNodes(vecAfter), "bNew");
        QCOMPARE(store.GetSelectedNodes(), vecAfter);
        QCOMPARE(store.SetSelectedNodes(vecAfter), false);
    }

    void selectingChangesTheCurrentPaneOnly()
    {
        CFilledStore store;
        const std::vector<QUuid> vecDiscovered = store.GetSelectedNodes(false);
        const std::vector<QUuid> vecNew{ ProcessorId("v") };
        store.SetSimulatorPane(true);
        QVERIFY(store.SetSelectedNodes(vecNew));
        QCOMPARE(store.GetSelectedNodes(true), vecNew);
        QCOMPARE(store.GetSelectedNodes(false), vecDiscovered);
        store.SetSimulatorPane(false);
        QVERIFY(store.SetSelectedNodes(vecNew));
        QCOMPARE(store.GetSelectedNodes(false), vecNew);
    }

    void expandingReachesOneNodeOfThePane_data()
    {
        using Fn = std::function<bool*(SProcessorAllNode&)>;
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<Fn>("fnField");
        QTest::newRow("root") << QUuid() << Fn([](SProcessorAllNode& node) { return &node.bExpanded; });
        QTest::newRow("group") << GroupId("Stage") << Fn([](SProcessorAllNode& node) { return &node.listGroup[0].bExpanded; });
        QTest::newRow("later group") << GroupId("Hall")
                                     << Fn([](SProcessorAllNode& node) { return &node.listGroup[2].bExpanded; });
        QTest::newRow("member") << ProcessorId("b")
                                << Fn([](SProcessorAllNode& node) { return &node.listGroup[0].listProcessor[1].bExpanded; });
        QTest::newRow("member of a later group")
            << ProcessorId("c") << Fn([](SProcessorAllNode& node) { return &node.listGroup[2].listProcessor[0].bExpanded; });
        QTest::newRow("first processor in no group")
            << ProcessorId("d") << Fn([](SProcessorAllNode& node) { return &node.listProcessor[0].bExpanded; });
        QTest::newRow("processor in no group")
            << ProcessorId("e") << Fn([](SProcessorAllNode& node) { return &node.listProcessor[1].bExpanded; });
        QTest::newRow("unknown") << ProcessorId("nobody") << Fn();
        QTest::newRow("member of the other pane") << ProcessorId("s") << Fn();
    }

    void expandingReachesOneNodeOfThePane()
    {
        using Fn = std::function<bool*(SProcessorAllNode&)>;
        QFETCH(QUuid, id);
        QFETCH(Fn, fnField);
        CFilledStore store;
        for (const bool bExpanded : { true, false, true }) {
            SProcessorAllNode nodeExpected = CurrentTree(store);
            if (fnField) {
                *fnField(nodeExpected) = bExpanded;
            }
            store.SetExpanded(id, bExpanded);
            QVERIFY(IsSame(CurrentTree(store), nodeExpected));
            QVERIFY(IsSame(TreeOfPane(store, true), SimulatorTree()));
        }
    }

    void expandingTheRootReachesNoNodeWithoutAnId_data()
    {
        QTest::addColumn<SProcessorAllNode>("node");
        QTest::newRow("group") << Root({ Group("Stage").NodeId(QUuid()) });
        QTest::newRow("member") << Root({ Group("Stage", { Processor("a").NodeId(QUuid()) }) });
        QTest::newRow("in no group") << Root({}, { Processor("d").NodeId(QUuid()) });
    }

    void expandingTheRootReachesNoNodeWithoutAnId()
    {
        QFETCH(SProcessorAllNode, node);
        CProcessorTreeData store;
        store.SetCurrentTree(node);
        for (const bool bExpanded : { false, true, false }) {
            node.bExpanded = bExpanded;
            store.SetExpanded(QUuid(), bExpanded);
            QVERIFY(IsSame(CurrentTree(store), node));
        }
    }

    void expandingANodeOfTheOtherPaneChangesNothing()
    {
        CFilledStore store;
        store.SetSimulatorPane(true);
        store.SetExpanded(ProcessorId("a"), false);
        QVERIFY(IsSame(TreeOfPane(store, false), DiscoveredTree()));
        store.SetExpanded(QUuid(), false);
        QVERIFY(IsSame(TreeOfPane(store, false), DiscoveredTree()));
        QCOMPARE(TreeOfPane(store, true).bExpanded, false);
    }

    void expandingLeavesReadTreesAlone()
    {
        CFilledStore store;
        const SProcessorAllNode nodeBefore = CurrentTree(store);
        for (const QUuid& id : { GroupId("Stage"), ProcessorId("a"), ProcessorId("e") }) {
            store.SetExpanded(id, true);
            store.SetExpanded(id, false);
        }
        QVERIFY(IsSame(nodeBefore, DiscoveredTree()));
    }

    void aWholeTreeIsPutIntoTheCurrentPane()
    {
        CFilledStore store;
        SProcessorAllNode node = Root({ Group("New") }, { Processor("n") });
        node.bExpanded = false;
        node.strName = "Mine";
        node.nNodeType = NodeInfo;
        store.SetSimulatorPane(true);
        store.SetCurrentTree(node);
        QVERIFY(IsSame(TreeOfPane(store, true), node));
        QVERIFY(IsSame(TreeOfPane(store, false), DiscoveredTree()));
        store.SetSimulatorPane(false);
        store.SetCurrentTree(node);
        QVERIFY(IsSame(TreeOfPane(store, false), node));
    }

    void aGroupIsAppendedToTheCurrentPane()
    {
        CFilledStore store;
        SProcessorAllNode nodeExpected = DiscoveredTree();
        nodeExpected.listGroup.append(Group("New", { Processor("n") }));
        store.AppendGroup(Group("New", { Processor("n") }));
        QVERIFY(IsSame(TreeOfPane(store, false), nodeExpected));
        QVERIFY(IsSame(TreeOfPane(store, true), SimulatorTree()));
        store.SetSimulatorPane(true);
        store.AppendGroup(Group("More"));
        QCOMPARE(TreeOfPane(store, true).listGroup.last().strName, QString("More"));
        QVERIFY(IsSame(TreeOfPane(store, false), nodeExpected));
    }

    void writingToTheStoreIsNotAnnounced()
    {
        CFilledStore store;
        const QSignalSpy spyNodeInfo(&store, &CProcessorTreeData::NotifyNodeInfo);
        const QSignalSpy spyButton(&store, &CProcessorTreeData::NotifyButton);
        const QSignalSpy spySelection(&store, &CProcessorTreeData::NotifyNodeSelectChanged);
        store.SetSelectedNodes({ ProcessorId("e") });
        store.SetExpanded(ProcessorId("e"), false);
        store.AppendGroup(Group("New"));
        store.SetSimulatorPane(true);
        store.SetCurrentTree(SProcessorAllNode());
        QCOMPARE(spyNodeInfo.count() + spyButton.count() + spySelection.count(), 0);
    }
};

PTV_TEST_MAIN_CORE(CStoreWriteTest)

#include "tst_storewrite.moc"
