#include "CModelFixture.h"
#include "TestMain.h"
#include "TreeText.h"
#include "model/CProcessorItem.h"
#include "model/EnItemRole.h"
#include "model/SRowKey.h"
#include "nodes/EnNodeType.h"

#include <QSignalSpy>

#include <future>

namespace {

SProcessorAllNode TwoGroups()
{
    return Root(
        { Group("Stage", { Processor("a").Expanded(false), Processor("b") }), Group("Hall", { Processor("c") }).Expanded(false) },
        { Processor("d").Expanded(false), Processor("e") });
}

SProcessorAllNode Simulators()
{
    return Root({ Group("Lab", { Processor("s") }) }, { Processor("t") });
}

} // namespace

/// The rows of a pane: ids to rows, the rebuild, and what opening a row tells.
class CTreeModelTest : public QObject
{
    Q_OBJECT

private slots:
    void theModelHasOneColumnAndOneTopRow()
    {
        const CModelFixture fixture(TwoGroups());
        QCOMPARE(fixture.pModel->columnCount(), 1);
        QCOMPARE(fixture.pModel->rowCount(), 1);
        QCOMPARE(fixture.pModel->GetRootIndex(), fixture.pModel->index(0, 0));
        QCOMPARE(fixture.pModel->GetRootIndex().data(RoleNodeType).toInt(), int(NodeAll));
        QCOMPARE(fixture.pModel->GetRootIndex().data(RoleNodeId), QVariant::fromValue(QUuid()));
        QVERIFY(dynamic_cast<CProcessorItem*>(fixture.pModel->item(0)) != nullptr);
    }

    void theModelIsAPlainItemModelOwnedByItsTree()
    {
        const CModelFixture fixture(TwoGroups());
        QCOMPARE(fixture.pModel->metaObject(), &QStandardItemModel::staticMetaObject);
        QCOMPARE(fixture.pModel->parent(), fixture.pTree.get());
        QCOMPARE(fixture.pModel->flags(fixture.pModel->GetRootIndex()), QStandardItem().flags());
        QCOMPARE(fixture.pModel->mimeTypes(), QStandardItemModel().mimeTypes());
    }

    void theConstructorBuildsTheRowsOnly()
    {
        const CModelFixture fixture(TwoGroups());
        QCOMPARE(TreeText(fixture.pTree.get()),
                 QString("all\n"
                         "  group Stage\n"
                         "    processor a\n"
                         "      info a\n"
                         "    processor b\n"
                         "      info b\n"
                         "  group Hall\n"
                         "    processor c\n"
                         "      info c\n"
                         "  processor d\n"
                         "    info d\n"
                         "  processor e\n"
                         "    info e\n"));
    }

    void everyIdGivesTheRootBeforeTheFirstRebuild()
    {
        const CModelFixture fixture(TwoGroups());
        for (const QUuid& id : { QUuid(), GroupId("Stage"), ProcessorId("a"), ProcessorId("e") }) {
            QCOMPARE(fixture.Index(id), fixture.pModel->GetRootIndex());
        }
    }

    void anIdGivesItsRow_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<int>("nKind");
        QTest::addColumn<int>("nRow");
        QTest::addColumn<QUuid>("idParent");
        QTest::newRow("root") << QUuid() << int(NodeAll) << 0 << QUuid();
        QTest::newRow("group") << GroupId("Stage") << int(NodeGroup) << 0 << QUuid();
        QTest::newRow("later group") << GroupId("Hall") << int(NodeGroup) << 1 << QUuid();
        QTest::newRow("first member") << ProcessorId("a") << int(NodeProcessor) << 0 << GroupId("Stage");
        QTest::newRow("later member") << ProcessorId("b") << int(NodeProcessor) << 1 << GroupId("Stage");
        QTest::newRow("member of a later group") << ProcessorId("c") << int(NodeProcessor) << 0 << GroupId("Hall");
        QTest::newRow("in no group") << ProcessorId("d") << int(NodeProcessor) << 2 << QUuid();
        QTest::newRow("last in no group") << ProcessorId("e") << int(NodeProcessor) << 3 << QUuid();
    }

    void anIdGivesItsRow()
    {
        QFETCH(QUuid, id);
        QFETCH(QUuid, idParent);
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        const QModelIndex index = fixture.Index(id);
        QVERIFY(index.isValid());
        QCOMPARE(index.data(RoleNodeId).toUuid(), id);
        QTEST(index.data(RoleNodeType).toInt(), "nKind");
        QTEST(index.row(), "nRow");
        QCOMPARE(index.parent().data(RoleNodeId).toUuid(), idParent);
    }

    void everyRowIsFoundByItsKey()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        const QModelIndexList listIndex = fixture.pModel->match(fixture.pModel->index(0, 0), RoleNodeType, QString(), -1,
                                                                Qt::MatchContains | Qt::MatchRecursive);
        QCOMPARE(listIndex.size(), 13);
        for (const QModelIndex& index : listIndex) {
            QCOMPARE(fixture.pModel->FindRow(SRowKey::Of(index)), index);
        }
    }

    void anIdWithoutARowGivesTheRoot_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::newRow("unknown") << ProcessorId("nobody");
        QTest::newRow("processor of the other pane") << ProcessorId("s");
        QTest::newRow("group of the other pane") << GroupId("Lab");
    }

    void anIdWithoutARowGivesTheRoot()
    {
        QFETCH(QUuid, id);
        CModelFixture fixture(TwoGroups(), Simulators());
        fixture.Rebuild();
        QCOMPARE(fixture.Index(id), fixture.pModel->GetRootIndex());
    }

    void idsThatHaveGoneGiveTheRootAfterTheRebuild()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        fixture.Show(Root({ Group("Hall") }, { Processor("e") }));
        fixture.Rebuild();
        for (const QUuid& id : { GroupId("Stage"), ProcessorId("a"), ProcessorId("c"), ProcessorId("d") }) {
            QCOMPARE(fixture.Index(id), fixture.pModel->GetRootIndex());
        }
        QCOMPARE(fixture.Index(ProcessorId("e")).row(), 1);
    }

    void aRebuildShowsTheExpansionOfTheRecords()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        QCOMPARE(TreeText(fixture.pTree.get()),
                 QString("all [expanded]\n"
                         "  group Stage [expanded]\n"
                         "    processor a\n"
                         "      info a\n"
                         "    processor b [expanded]\n"
                         "      info b\n"
                         "  group Hall\n"
                         "    processor c [expanded]\n"
                         "      info c\n"
                         "  processor d\n"
                         "    info d\n"
                         "  processor e [expanded]\n"
                         "    info e\n"));
    }

    void aRebuildOpensTheRootWhateverItsRecordSays()
    {
        SProcessorAllNode node = TwoGroups();
        node.bExpanded = false;
        CModelFixture fixture(node);
        fixture.Rebuild();
        QVERIFY(fixture.pTree->isExpanded(fixture.pModel->GetRootIndex()));
        fixture.pTree->collapse(fixture.pModel->GetRootIndex());
        fixture.Rebuild();
        QVERIFY(fixture.pTree->isExpanded(fixture.pModel->GetRootIndex()));
    }

    void aRebuildFollowsTheStore()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        fixture.Show(Root({ Group("Hall", { Processor("a").Expanded(false) }) }, { Processor("c") }));
        QVERIFY(TreeText(fixture.pTree.get()).contains("Stage"));
        fixture.Rebuild();
        QCOMPARE(TreeText(fixture.pTree.get()),
                 QString("all [expanded]\n"
                         "  group Hall [expanded]\n"
                         "    processor a\n"
                         "      info a\n"
                         "  processor c [expanded]\n"
                         "    info c\n"));
    }

    void aRebuildShowsTheCurrentPane()
    {
        CModelFixture fixture(TwoGroups(), Simulators());
        fixture.Rebuild();
        fixture.SetSimulatorPane(true);
        fixture.Rebuild();
        QCOMPARE(TreeText(fixture.pModel),
                 QString("all\n  group Lab\n    processor s\n      info s\n  processor t\n    info t\n"));
        QCOMPARE(fixture.Index(ProcessorId("a")), fixture.pModel->GetRootIndex());
        QCOMPARE(fixture.Index(ProcessorId("t")).row(), 1);
    }

    void aRebuildOfAnEmptyPaneLeavesTheRoot()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        fixture.Show(SProcessorAllNode());
        fixture.Rebuild();
        QCOMPARE(TreeText(fixture.pTree.get()), QString("all\n"));
        QCOMPARE(fixture.Index(QUuid()), fixture.pModel->GetRootIndex());
    }

    void aRebuildSaysNothingOfExpansionWhileTheTreeIsBlocked()
    {
        CModelFixture fixture(TwoGroups());
        const QSignalSpy spyExpanded(fixture.pTree.get(), &QTreeView::expanded);
        const QSignalSpy spyCollapsed(fixture.pTree.get(), &QTreeView::collapsed);
        fixture.Rebuild();
        fixture.Rebuild();
        QCOMPARE(spyExpanded.count() + spyCollapsed.count(), 0);
        QCOMPARE(fixture.control.CallCount("SetExpanded"), 0);
    }

    void aRebuildReplacesAllRowsButTheRoot()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        const QPersistentModelIndex indexRoot = fixture.pModel->GetRootIndex();
        const QPersistentModelIndex indexGroup = fixture.Index(GroupId("Stage"));
        const QPersistentModelIndex indexMember = fixture.Index(ProcessorId("a"));
        fixture.Rebuild();
        QVERIFY(indexRoot.isValid());
        QVERIFY(!indexGroup.isValid());
        QVERIFY(!indexMember.isValid());
    }

    void idsAskedForInTheMiddleOfARebuildGiveTheRoot()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        int nAsked = 0;
        int nRoots = 0;
        const auto fnAsk = [&] {
            for (const QUuid& id : { GroupId("Stage"), ProcessorId("a"), ProcessorId("e"), QUuid() }) {
                ++nAsked;
                nRoots += fixture.Index(id) == fixture.pModel->GetRootIndex() ? 1 : 0;
            }
        };
        connect(fixture.pModel, &QStandardItemModel::rowsRemoved, this, fnAsk);
        connect(fixture.pModel, &QStandardItemModel::rowsInserted, this, fnAsk);
        fixture.Rebuild();
        QVERIFY(nAsked > 0);
        QCOMPARE(nRoots, nAsked);
    }

    void idsAreKnownBeforeARebuildOpensTheirRows()
    {
        CModelFixture fixture(TwoGroups());
        QStringList listOpened;
        const auto fnAsk = [&](const QModelIndex& index) {
            const QUuid id = index.data(RoleNodeId).toUuid();
            listOpened += !id.isNull() && fixture.Index(id) == index ? CNameRegistry::Instance().Text(id) : QString("root");
        };
        connect(fixture.pTree.get(), &QTreeView::expanded, this, fnAsk);
        // Otherwise blocked until the rebuild has returned.
        const auto fnUnblock = [&] { fixture.pTree->blockSignals(false); };
        connect(fixture.pModel, &QStandardItemModel::rowsInserted, this, fnUnblock);
        fixture.Rebuild();
        QCOMPARE(listOpened, (QStringList{ "root", "Stage", "b", "c", "e" }));
    }

    void openingARowTellsTheStoreAndTheLibrary_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<QString>("strName");
        QTest::newRow("root") << QUuid() << "{null}";
        QTest::newRow("group") << GroupId("Stage") << "Stage";
        QTest::newRow("member") << ProcessorId("c") << "c";
        QTest::newRow("in no group") << ProcessorId("e") << "e";
    }

    void openingARowTellsTheStoreAndTheLibrary()
    {
        QFETCH(QUuid, id);
        QFETCH(QString, strName);
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        for (const bool bExpanded : { false, true }) {
            SControlAnswers answers = fixture.control.Answers();
            answers.SetExpanded(id, bExpanded);
            fixture.control.ClearJournal();
            bExpanded ? fixture.pModel->DealExpanded(fixture.Index(id)) : fixture.pModel->DealCollapsed(fixture.Index(id));
            const QString strCall = "g_pPrcListControl.SetExpanded(%1, %2)";
            QCOMPARE(fixture.control.Calls(), QStringList(strCall.arg(strName, bExpanded ? "true" : "false")));
            SProcessorAllNode node;
            g_pProcessorTreeData->GetCurrentTree(node);
            QCOMPARE(node.bExpanded, answers.nodeDiscovered.bExpanded);
            QVERIFY(node.listGroup == answers.nodeDiscovered.listGroup);
            QVERIFY(node.listProcessor == answers.nodeDiscovered.listProcessor);
        }
    }

    void theStoreHearsOfAnOpenedRowBeforeTheLibrary()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        fixture.control.Hold("SetExpanded");
        auto seen = std::async(std::launch::async, [&] {
            const bool bHeld = fixture.control.WaitForHeld("SetExpanded");
            const bool bStored = g_pProcessorTreeData->GetGroup(GroupId("Hall")).bExpanded;
            fixture.control.Release("SetExpanded");
            return bHeld && bStored;
        });
        fixture.pModel->DealExpanded(fixture.Index(GroupId("Hall")));
        QVERIFY(seen.get());
    }

    void aRefreshAfterOpeningARowFindsNoDifference()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        fixture.pTree->expand(fixture.Index(GroupId("Hall")));
        fixture.pTree->collapse(fixture.Index(ProcessorId("e")));
        fixture.pTree->collapse(fixture.pModel->GetRootIndex());
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pPrcListControl.SetExpanded(Hall, true)", "g_pPrcListControl.SetExpanded(e, false)",
                               "g_pPrcListControl.SetExpanded({null}, false)" }));
        g_pProcessorTreeData->Refresh();
        QCOMPARE(spy.count(), 0);
        fixture.Rebuild();
        QVERIFY(fixture.pTree->isExpanded(fixture.Index(GroupId("Hall"))));
        QVERIFY(!fixture.pTree->isExpanded(fixture.Index(ProcessorId("e"))));
    }

    void anInvalidRowIsNotOpened()
    {
        CModelFixture fixture(TwoGroups());
        fixture.Rebuild();
        fixture.pModel->DealExpanded(QModelIndex());
        fixture.pModel->DealCollapsed(QModelIndex());
        QCOMPARE(fixture.control.Calls(), QStringList());
        QCOMPARE(g_pProcessorTreeData->GetGroup(GroupId("Stage")).bExpanded, true);
    }

    void aRowOfAnotherModelIsReadAsAnId_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("strName");
        QTest::newRow("id") << QVariant(ProcessorId("e")) << "e";
        QTest::newRow("text of an id") << QVariant(ProcessorId("e").toString()) << "e";
        QTest::newRow("other text") << QVariant("violin") << "{null}";
        QTest::newRow("number") << QVariant(42) << "{null}";
        QTest::newRow("nothing") << QVariant() << "{null}";
    }

    void aRowOfAnotherModelIsReadAsAnId()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, strName);
        CModelFixture fixture(TwoGroups());
        QStandardItemModel other(1, 1);
        other.setData(other.index(0, 0), value, RoleNodeId);
        fixture.pModel->DealCollapsed(other.index(0, 0));
        QCOMPARE(fixture.control.Calls(), QStringList("g_pPrcListControl.SetExpanded(" + strName + ", false)"));
    }

    void aNodeWithoutAnIdLeavesTheNullIdToTheRoot()
    {
        CModelFixture fixture(Root({ Group("Stage").NodeId(QUuid()) }, { Processor("a").NodeId(QUuid()), Processor("b") }));
        fixture.Rebuild();
        QCOMPARE(fixture.Index(QUuid()), fixture.pModel->GetRootIndex());
        QCOMPARE(fixture.Index(ProcessorId("b")).row(), 2);
    }
};

PTV_TEST_MAIN(CTreeModelTest)

#include "tst_treemodel.moc"
