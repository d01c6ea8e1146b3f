#include "SModelRig.h"
#include "TestMain.h"
#include "TreeText.h"
#include "model/CProcessorItem.h"
#include "model/EnItemRole.h"
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
        const SModelRig rig(TwoGroups());
        QCOMPARE(rig.pModel->columnCount(), 1);
        QCOMPARE(rig.pModel->rowCount(), 1);
        QCOMPARE(rig.pModel->GetRootIndex(), rig.pModel->index(0, 0));
        QCOMPARE(rig.pModel->GetRootIndex().data(RoleNodeType).toInt(), int(NodeAll));
        QCOMPARE(rig.pModel->GetRootIndex().data(RoleNodeId), QVariant::fromValue(QUuid()));
        QVERIFY(dynamic_cast<CProcessorItem*>(rig.pModel->item(0)) != nullptr);
    }

    void theModelIsAPlainItemModelOwnedByItsTree()
    {
        const SModelRig rig(TwoGroups());
        QCOMPARE(rig.pModel->metaObject(), &QStandardItemModel::staticMetaObject);
        QCOMPARE(rig.pModel->parent(), rig.pTree.get());
        QCOMPARE(rig.pModel->flags(rig.pModel->GetRootIndex()), QStandardItem().flags());
        QCOMPARE(rig.pModel->mimeTypes(), QStandardItemModel().mimeTypes());
    }

    void theConstructorBuildsTheRowsOnly()
    {
        const SModelRig rig(TwoGroups());
        QCOMPARE(TreeText(rig.pTree.get()),
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
        const SModelRig rig(TwoGroups());
        for (const QUuid& id : { QUuid(), GroupId("Stage"), ProcessorId("a"), ProcessorId("e") }) {
            QCOMPARE(rig.Index(id), rig.pModel->GetRootIndex());
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
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        const QModelIndex index = rig.Index(id);
        QVERIFY(index.isValid());
        QCOMPARE(index.data(RoleNodeId).toUuid(), id);
        QTEST(index.data(RoleNodeType).toInt(), "nKind");
        QTEST(index.row(), "nRow");
        QCOMPARE(index.parent().data(RoleNodeId).toUuid(), idParent);
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
        SModelRig rig(TwoGroups(), Simulators());
        rig.Rebuild();
        QCOMPARE(rig.Index(id), rig.pModel->GetRootIndex());
    }

    void idsThatHaveGoneGiveTheRootAfterTheRebuild()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        rig.Change(Root({ Group("Hall") }, { Processor("e") }));
        rig.Rebuild();
        for (const QUuid& id : { GroupId("Stage"), ProcessorId("a"), ProcessorId("c"), ProcessorId("d") }) {
            QCOMPARE(rig.Index(id), rig.pModel->GetRootIndex());
        }
        QCOMPARE(rig.Index(ProcessorId("e")).row(), 1);
    }

    void aRebuildShowsTheExpansionOfTheRecords()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        QCOMPARE(TreeText(rig.pTree.get()),
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
        SModelRig rig(node);
        rig.Rebuild();
        QVERIFY(rig.pTree->isExpanded(rig.pModel->GetRootIndex()));
        rig.pTree->collapse(rig.pModel->GetRootIndex());
        rig.Rebuild();
        QVERIFY(rig.pTree->isExpanded(rig.pModel->GetRootIndex()));
    }

    void aRebuildFollowsTheStore()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        rig.Change(Root({ Group("Hall", { Processor("a").Expanded(false) }) }, { Processor("c") }));
        QVERIFY(TreeText(rig.pTree.get()).contains("Stage"));
        rig.Rebuild();
        QCOMPARE(TreeText(rig.pTree.get()),
                 QString("all [expanded]\n"
                         "  group Hall [expanded]\n"
                         "    processor a\n"
                         "      info a\n"
                         "  processor c [expanded]\n"
                         "    info c\n"));
    }

    void aRebuildShowsTheCurrentPane()
    {
        SModelRig rig(TwoGroups(), Simulators());
        rig.Rebuild();
        rig.ShowPane(true);
        rig.Rebuild();
        QCOMPARE(TreeText(rig.pModel), QString("all\n  group Lab\n    processor s\n      info s\n  processor t\n    info t\n"));
        QCOMPARE(rig.Index(ProcessorId("a")), rig.pModel->GetRootIndex());
        QCOMPARE(rig.Index(ProcessorId("t")).row(), 1);
    }

    void aRebuildOfAnEmptyPaneLeavesTheRoot()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        rig.Change(SProcessorAllNode());
        rig.Rebuild();
        QCOMPARE(TreeText(rig.pTree.get()), QString("all\n"));
        QCOMPARE(rig.Index(QUuid()), rig.pModel->GetRootIndex());
    }

    void aRebuildSaysNothingOfExpansionWhileTheTreeIsBlocked()
    {
        SModelRig rig(TwoGroups());
        const QSignalSpy spyExpanded(rig.pTree.get(), &QTreeView::expanded);
        const QSignalSpy spyCollapsed(rig.pTree.get(), &QTreeView::collapsed);
        rig.Rebuild();
        rig.Rebuild();
        QCOMPARE(spyExpanded.count() + spyCollapsed.count(), 0);
        QCOMPARE(rig.control.CallCount("SetExpanded"), 0);
    }

    void aRebuildReplacesAllRowsButTheRoot()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        const QPersistentModelIndex indexRoot = rig.pModel->GetRootIndex();
        const QPersistentModelIndex indexGroup = rig.Index(GroupId("Stage"));
        const QPersistentModelIndex indexMember = rig.Index(ProcessorId("a"));
        rig.Rebuild();
        QVERIFY(indexRoot.isValid());
        QVERIFY(!indexGroup.isValid());
        QVERIFY(!indexMember.isValid());
    }

    void idsAskedForInTheMiddleOfARebuildGiveTheRoot()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        int nAsked = 0;
        int nRoots = 0;
        const auto fnAsk = [&] {
            for (const QUuid& id : { GroupId("Stage"), ProcessorId("a"), ProcessorId("e"), QUuid() }) {
                ++nAsked;
                nRoots += rig.Index(id) == rig.pModel->GetRootIndex() ? 1 : 0;
            }
        };
        connect(rig.pModel, &QStandardItemModel::rowsRemoved, this, fnAsk);
        connect(rig.pModel, &QStandardItemModel::rowsInserted, this, fnAsk);
        rig.Rebuild();
        QVERIFY(nAsked > 0);
        QCOMPARE(nRoots, nAsked);
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
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        for (const bool bExpanded : { false, true }) {
            SControlAnswers answers = rig.control.Answers();
            answers.SetExpanded(id, bExpanded);
            rig.control.ClearJournal();
            bExpanded ? rig.pModel->DealExpanded(rig.Index(id)) : rig.pModel->DealCollapsed(rig.Index(id));
            const QString strCall = "g_pPrcListControl.SetExpanded(%1, %2)";
            QCOMPARE(rig.control.Calls(), QStringList(strCall.arg(strName, bExpanded ? "true" : "false")));
            SProcessorAllNode node;
            g_pProcessorTreeData->GetCurrentTree(node);
            QCOMPARE(node.bExpanded, answers.nodeDiscovered.bExpanded);
            QVERIFY(node.listGroup == answers.nodeDiscovered.listGroup);
            QVERIFY(node.listProcessor == answers.nodeDiscovered.listProcessor);
        }
    }

    void theStoreHearsOfAnOpenedRowBeforeTheLibrary()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        rig.control.Hold("SetExpanded");
        auto seen = std::async(std::launch::async, [&] {
            const bool bHeld = rig.control.WaitForHeld("SetExpanded");
            const bool bStored = g_pProcessorTreeData->GetGroup(GroupId("Hall")).bExpanded;
            rig.control.Release("SetExpanded");
            return bHeld && bStored;
        });
        rig.pModel->DealExpanded(rig.Index(GroupId("Hall")));
        QVERIFY(seen.get());
    }

    void aRefreshAfterOpeningARowFindsNoDifference()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        const QSignalSpy spy(g_pProcessorTreeData, &CProcessorTreeData::NotifyNodeInfo);
        rig.pTree->expand(rig.Index(GroupId("Hall")));
        rig.pTree->collapse(rig.Index(ProcessorId("e")));
        rig.pTree->collapse(rig.pModel->GetRootIndex());
        QCOMPARE(rig.control.Commands(),
                 (QStringList{ "g_pPrcListControl.SetExpanded(Hall, true)", "g_pPrcListControl.SetExpanded(e, false)",
                               "g_pPrcListControl.SetExpanded({null}, false)" }));
        g_pProcessorTreeData->Refresh();
        QCOMPARE(spy.count(), 0);
        rig.Rebuild();
        QVERIFY(rig.pTree->isExpanded(rig.Index(GroupId("Hall"))));
        QVERIFY(!rig.pTree->isExpanded(rig.Index(ProcessorId("e"))));
    }

    void anInvalidRowIsNotOpened()
    {
        SModelRig rig(TwoGroups());
        rig.Rebuild();
        rig.pModel->DealExpanded(QModelIndex());
        rig.pModel->DealCollapsed(QModelIndex());
        QCOMPARE(rig.control.Calls(), QStringList());
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
        SModelRig rig(TwoGroups());
        QStandardItemModel other(1, 1);
        other.setData(other.index(0, 0), value, RoleNodeId);
        rig.pModel->DealCollapsed(other.index(0, 0));
        QCOMPARE(rig.control.Calls(), QStringList("g_pPrcListControl.SetExpanded(" + strName + ", false)"));
    }

    void aNodeWithoutAnIdLeavesTheNullIdToTheRoot()
    {
        SModelRig rig(Root({ Group("Stage").NodeId(QUuid()) }, { Processor("a").NodeId(QUuid()), Processor("b") }));
        rig.Rebuild();
        QCOMPARE(rig.Index(QUuid()), rig.pModel->GetRootIndex());
        QCOMPARE(rig.Index(ProcessorId("b")).row(), 2);
    }
};

PTV_TEST_MAIN(CTreeModelTest)

#include "tst_treemodel.moc"
