#include "CFilledStore.h"
#include "TestMain.h"
#include "double/CControlDouble.h"
#include "nodes/EnNodeType.h"

#include <QProcess>
#include <QThread>

#include <cstdio>
#include <cstring>

namespace {

CProcessorTreeData* pStoreBeforeMain = nullptr;
}

Q_DECLARE_METATYPE(SProcessorNode)
Q_DECLARE_METATYPE(SProcessorGroupNode)

/// With "--end" the program only tells in which order main and the store end.

/// What a widget reads from the store, on one thread.
class CStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void theStoreExistsBeforeTheApplication()
    {
        QVERIFY(pStoreBeforeMain != nullptr);
        QCOMPARE(g_pProcessorTreeData, pStoreBeforeMain);
        QCOMPARE(g_pProcessorTreeData->thread(), QThread::currentThread());
        QCOMPARE(g_pProcessorTreeData->parent(), nullptr);
    }

    void theStoreIsDeletedAfterMain()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), { "--end" });
        QVERIFY(process.waitForFinished(nPatience));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardOutput(), QByteArray("main ends\nstore ends\n"));
    }

    void theStoreTellsFiveThingsAndTakesNoOrders()
    {
        const QMetaObject& meta = CProcessorTreeData::staticMetaObject;
        QStringList listMethod;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
            listMethod.append(meta.method(i).methodSignature());
        }
        QCOMPARE(listMethod,
                 (QStringList{ "NotifyNodeInfo()", "NotifyButton()", "NotifyNodeSelectChanged()", "NotifyWindowTitle()",
                               "NotifyChiefChanged()" }));
    }

    void makingAStoreAsksTheLibraryNothing()
    {
        const CControlDouble control;
        const CProcessorTreeData store;
        QCOMPARE(control.Calls(), QStringList());
    }

    void aNewStoreIsEmptyUnlockedAndOnTheDiscoveredPane()
    {
        const CProcessorTreeData store;
        QVERIFY(IsSame(TreeOfPane(store, false), SProcessorAllNode()));
        QVERIFY(IsSame(TreeOfPane(store, true), SProcessorAllNode()));
        QVERIFY(store.GetProjectName().isNull());
        QCOMPARE(store.IsRefreshEnabled(), true);
        QCOMPARE(store.IsListLocked(), false);
        QCOMPARE(store.IsChiefMode(), false);
        QCOMPARE(store.IsSimulatorPane(), false);
        QCOMPARE(store.GetProcessorCount(), 0);
    }

    void aNewStoreSelectsAnUnknownNodeInEachPane()
    {
        const CProcessorTreeData store;
        const CProcessorTreeData other;
        QSet<QUuid> setId;
        for (const CProcessorTreeData* pStore : { &store, &other }) {
            for (const bool bSimulator : { false, true }) {
                const std::vector<QUuid> vecId = pStore->GetSelectedNodes(bSimulator);
                QCOMPARE(vecId.size(), size_t(1));
                QVERIFY(!vecId.front().isNull());
                QVERIFY(pStore->GetNodeName(vecId.front()).isNull());
                setId.insert(vecId.front());
            }
            QCOMPARE(pStore->GetSelectedNodes(), pStore->GetSelectedNodes(false));
        }
        QCOMPARE(setId.size(), 4);
    }

    void theCurrentTreeIsThatOfThePane()
    {
        CFilledStore store;
        QVERIFY(IsSame(CurrentTree(store), DiscoveredTree()));
        store.SetSimulatorPane(true);
        QCOMPARE(store.IsSimulatorPane(), true);
        QVERIFY(IsSame(CurrentTree(store), SimulatorTree()));
        QVERIFY(IsSame(TreeOfPane(store, false), DiscoveredTree()));
        QVERIFY(IsSame(TreeOfPane(store, true), SimulatorTree()));
        store.SetSimulatorPane(false);
        QCOMPARE(store.IsSimulatorPane(), false);
        QVERIFY(IsSame(CurrentTree(store), DiscoveredTree()));
    }

    void readingATreeReplacesAllThatTheArgumentHeld()
    {
        const CFilledStore store;
        using Query = void (CProcessorTreeData::*)(SProcessorAllNode&) const;
        for (const Query fnQuery : { &CProcessorTreeData::GetCurrentTree, &CProcessorTreeData::GetDiscoveredTree }) {
            SProcessorAllNode node = SimulatorTree();
            node.bExpanded = false;
            node.strName = "stale";
            node.nNodeType = NodeInfo;
            (store.*fnQuery)(node);
            QVERIFY(IsSame(node, DiscoveredTree()));
        }
        SProcessorAllNode node = DiscoveredTree();
        node.bExpanded = false;
        node.strName = "stale";
        node.nNodeType = NodeInfo;
        store.GetSimulatorTree(node);
        QVERIFY(IsSame(node, SimulatorTree()));
    }

    void aTreeThatWasReadCanBeChangedWithoutTheStore()
    {
        const CFilledStore store;
        SProcessorAllNode node = CurrentTree(store);
        node.listGroup[0].listProcessor[0].strName = "changed";
        node.listGroup.removeLast();
        node.listProcessor.clear();
        QVERIFY(IsSame(CurrentTree(store), DiscoveredTree()));
    }

    void theNumberOfProcessorsCountsMembersToo()
    {
        CFilledStore store;
        QCOMPARE(store.GetProcessorCount(), 5);
        store.SetSimulatorPane(true);
        QCOMPARE(store.GetProcessorCount(), 4);
    }

    void aGroupIsCountedByItsIdOnly_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<int>("nDiscovered");
        QTest::addColumn<int>("nSimulator");
        QTest::newRow("group") << GroupId("Stage") << 2 << 0;
        QTest::newRow("later group") << GroupId("Hall") << 1 << 0;
        QTest::newRow("empty group") << GroupId("Empty") << 0 << 0;
        QTest::newRow("group of the other pane") << GroupId("Lab") << 0 << 3;
        QTest::newRow("member") << ProcessorId("a") << 0 << 0;
        QTest::newRow("processor in no group") << ProcessorId("d") << 0 << 0;
        QTest::newRow("unknown") << ProcessorId("nobody") << 0 << 0;
        QTest::newRow("null") << QUuid() << 0 << 0;
    }

    void aGroupIsCountedByItsIdOnly()
    {
        QFETCH(QUuid, id);
        CFilledStore store;
        QTEST(store.GetGroupProcessorCount(id), "nDiscovered");
        store.SetSimulatorPane(true);
        QTEST(store.GetGroupProcessorCount(id), "nSimulator");
    }

    void onlyGroupsAreFoundAsGroups_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<SProcessorGroupNode>("node");
        QTest::newRow("group") << GroupId("Stage") << DiscoveredTree().listGroup.at(0);
        QTest::newRow("later group") << GroupId("Hall") << DiscoveredTree().listGroup.at(2);
        QTest::newRow("group of the other pane") << GroupId("Lab") << SProcessorGroupNode();
        QTest::newRow("member") << ProcessorId("a") << SProcessorGroupNode();
        QTest::newRow("processor in no group") << ProcessorId("d") << SProcessorGroupNode();
        QTest::newRow("unknown") << ProcessorId("nobody") << SProcessorGroupNode();
        QTest::newRow("null") << QUuid() << SProcessorGroupNode();
    }

    void onlyGroupsAreFoundAsGroups()
    {
        QFETCH(QUuid, id);
        QFETCH(SProcessorGroupNode, node);
        const CFilledStore store;
        QVERIFY(store.GetGroup(id) == node);
    }

    void onlyProcessorsOfThePaneAreFoundAsProcessors_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<SProcessorNode>("node");
        QTest::newRow("first member") << ProcessorId("a") << DiscoveredTree().listGroup.at(0).listProcessor.at(0);
        QTest::newRow("later member") << ProcessorId("b") << DiscoveredTree().listGroup.at(0).listProcessor.at(1);
        QTest::newRow("member of a later group") << ProcessorId("c") << DiscoveredTree().listGroup.at(2).listProcessor.at(0);
        QTest::newRow("processor in no group") << ProcessorId("e") << DiscoveredTree().listProcessor.at(1);
        QTest::newRow("processor of the other pane") << ProcessorId("s") << SProcessorNode();
        QTest::newRow("group") << GroupId("Stage") << SProcessorNode();
        QTest::newRow("unknown") << ProcessorId("nobody") << SProcessorNode();
        QTest::newRow("null") << QUuid() << SProcessorNode();
    }

    void onlyProcessorsOfThePaneAreFoundAsProcessors()
    {
        QFETCH(QUuid, id);
        QFETCH(SProcessorNode, node);
        const CFilledStore store;
        QVERIFY(store.GetProcessor(id) == node);
    }

    void groupsAndProcessorsHaveNames_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<QString>("strDiscovered");
        QTest::addColumn<QString>("strSimulator");
        QTest::newRow("group") << GroupId("Hall") << "Hall" << QString();
        QTest::newRow("member") << ProcessorId("c") << "c" << QString();
        QTest::newRow("processor in no group") << ProcessorId("e") << "e" << QString();
        QTest::newRow("member of the other pane") << ProcessorId("u") << QString() << "u";
        QTest::newRow("group of the other pane") << GroupId("Lab") << QString() << "Lab";
        QTest::newRow("unknown") << ProcessorId("nobody") << QString() << QString();
        QTest::newRow("root") << QUuid() << QString() << QString();
    }

    void groupsAndProcessorsHaveNames()
    {
        QFETCH(QUuid, id);
        QFETCH(QString, strDiscovered);
        CFilledStore store;
        QTEST(store.GetNodeName(id), "strDiscovered");
        QCOMPARE(store.GetNodeName(id).isNull(), strDiscovered.isNull());
        store.SetSimulatorPane(true);
        QTEST(store.GetNodeName(id), "strSimulator");
    }

    void ofTwoNodesWithOneIdTheFirstIsFound()
    {
        CProcessorTreeData store;
        store.SetCurrentTree(Root({ Group("first", { Processor("x"), Processor("y").Id("x") }).Id("twice"),
                                    Group("second", { Processor("z").Id("x") }).Id("twice") },
                                  { Processor("w").Id("x") }));
        QCOMPARE(store.GetGroup(GroupId("twice")).strName, QString("first"));
        QCOMPARE(store.GetGroupProcessorCount(GroupId("twice")), 2);
        QCOMPARE(store.GetNodeName(GroupId("twice")), QString("first"));
        QCOMPARE(store.GetProcessor(ProcessorId("x")).strName, QString("x"));
        QCOMPARE(store.GetNodeName(ProcessorId("x")), QString("x"));
        store.SetExpanded(ProcessorId("x"), false);
        QCOMPARE(CurrentTree(store).listGroup.at(0).listProcessor.at(0).bExpanded, false);
        QCOMPARE(CurrentTree(store).listGroup.at(0).listProcessor.at(1).bExpanded, true);
        QCOMPARE(CurrentTree(store).listProcessor.at(0).bExpanded, true);
    }
};

int main(int argc, char** argv)
{
    pStoreBeforeMain = g_pProcessorTreeData;
    if (argc == 2 && std::strcmp(argv[1], "--end") == 0) {
        QObject::connect(g_pProcessorTreeData, &QObject::destroyed, [] { std::puts("store ends"); });
        std::puts("main ends");
        return 0;
    }
    return TestMain::Main<CStoreTest, QCoreApplication>(argc, argv);
}

#include "tst_store.moc"
