#include "Builders.h"
#include "CNameRegistry.h"
#include "TestMain.h"
#include "TreeText.h"
#include "data/CProcessorTreeData.h"
#include "double/CControlDouble.h"
#include "model/CProcessorItem.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QStandardItemModel>

namespace {

/// Lets the process's store read these trees, with the Discovered pane current.
void FillStore(const SProcessorAllNode& nodeDiscovered, const SProcessorAllNode& nodeSimulator = SProcessorAllNode())
{
    CControlDouble control;
    control.Set([&](SControlAnswers& answers) {
        answers.nodeDiscovered = nodeDiscovered;
        answers.nodeSimulator = nodeSimulator;
    });
    g_pProcessorTreeData->Refresh();
}

SProcessorAllNode SmallTree()
{
    return Root({ Group("Stage", { Processor("a"), Processor("b") }), Group("Empty") }, { Processor("d") });
}

/// The item with its rows as text; the item is gone afterwards.
QString RowsOf(CProcessorItem* pItem)
{
    QStandardItemModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.appendRow(pItem);
    return TreeText(&model);
}

/// Sees how an item reads and writes its own data.
class CSpyItem : public CProcessorItem
{
public:
    using CProcessorItem::CProcessorItem;

    QVariant data(int role) const override
    {
        return role == RoleNodeType && nKind != 0 ? QVariant(nKind) : CProcessorItem::data(role);
    }

    void setData(const QVariant& value, int role) override
    {
        listWritten.append(role);
        CProcessorItem::setData(value, role);
    }

    int nKind = 0; ///< told in place of the item's own, unless 0
    QList<int> listWritten;
};

} // namespace

/// Rows: what they know, and which rows they build under themselves.
class CItemTest : public QObject
{
    Q_OBJECT

private slots:
    void rolesHaveTheirNumbers_data()
    {
        QTest::addColumn<int>("nRole");
        QTest::addColumn<int>("nNumber");
        QTest::newRow("SizeHintRole") << int(Qt::SizeHintRole) << 13;
        QTest::newRow("RoleNodeId") << int(RoleNodeId) << 257;
        QTest::newRow("RoleNodeType") << int(RoleNodeType) << 258;
        QTest::newRow("RoleNodeItem") << int(RoleNodeItem) << 260;
        QTest::newRow("RoleFirstEdit") << int(RoleFirstEdit) << 266;
        QTest::newRow("RoleToolTip") << int(RoleToolTip) << 356;
    }

    void rolesHaveTheirNumbers()
    {
        QFETCH(int, nRole);
        QTEST(nRole, "nNumber");
    }

    void aNewRowKnowsItsKindAndHeightOnly_data()
    {
        QTest::addColumn<int>("nKind");
        for (int nKind = -1; nKind <= 6; ++nKind) {
            QTest::addRow("kind %d", nKind) << nKind;
        }
    }

    void aNewRowKnowsItsKindAndHeightOnly()
    {
        QFETCH(int, nKind);
        FillStore(SmallTree());
        const CProcessorItem item(nKind);
        QCOMPARE(item.data(RoleNodeType), QVariant(nKind));
        QCOMPARE(item.data(RoleNodeType).userType(), int(QMetaType::Int));
        QCOMPARE(item.data(Qt::SizeHintRole), QVariant(QSize(0, 32)));
        QVERIFY(item.GetNodeId().isNull());
        QVERIFY(!item.data(RoleNodeId).isValid());
        QCOMPARE(item.rowCount(), 0);
    }

    void aRowHasNothingToShowByItself()
    {
        FillStore(SmallTree());
        CProcessorItem item(NodeProcessor);
        item.SetNodeId(ProcessorId("a"));
        QCOMPARE(item.text(), QString());
        QVERIFY(item.icon().isNull());
        QVERIFY(!item.data(Qt::CheckStateRole).isValid());
        QVERIFY(!item.data(Qt::ToolTipRole).isValid());
        QCOMPARE(item.flags(), QStandardItem().flags());
        QCOMPARE(item.type(), QStandardItem().type());
    }

    void aRowKeepsItsIdAsAnId()
    {
        FillStore(SmallTree());
        CProcessorItem item(NodeGroup);
        item.SetNodeId(GroupId("Stage"));
        QCOMPARE(item.GetNodeId(), GroupId("Stage"));
        QCOMPARE(item.data(RoleNodeId).userType(), int(QMetaType::QUuid));
        QCOMPARE(item.data(RoleNodeId).toUuid(), GroupId("Stage"));
    }

    void aRowReadsAndWritesThroughItsOwnOperations()
    {
        FillStore(SmallTree());
        CSpyItem item(NodeGroup);
        QCOMPARE(item.listWritten, QList<int>());
        item.SetNodeId(GroupId("Stage"));
        QCOMPARE(item.listWritten, QList<int>{ RoleNodeId });
        QCOMPARE(item.rowCount(), 2);
        item.nKind = NodeProcessor;
        item.UpdateChildren();
        QCOMPARE(item.child(0)->data(RoleNodeType).toInt(), int(NodeInfo));
    }

    void theRootBuildsGroupsFirstThenProcessors()
    {
        FillStore(Root({ Group("Stage", { Processor("a"), Processor("b") }), Group("Empty"), Group("Hall", { Processor("c") }) },
                       { Processor("d"), Processor("e") }));
        auto* pItem = new CProcessorItem(NodeAll);
        pItem->SetNodeId(QUuid());
        QCOMPARE(pItem->data(RoleNodeId), QVariant::fromValue(QUuid()));
        QCOMPARE(RowsOf(pItem),
                 QString("all\n"
                         "  group Stage\n"
                         "    processor a\n"
                         "      info a\n"
                         "    processor b\n"
                         "      info b\n"
                         "  group Empty\n"
                         "  group Hall\n"
                         "    processor c\n"
                         "      info c\n"
                         "  processor d\n"
                         "    info d\n"
                         "  processor e\n"
                         "    info e\n"));
    }

    void theRootOfAnEmptyPaneHasNoRows()
    {
        FillStore(SProcessorAllNode());
        auto* pItem = new CProcessorItem(NodeAll);
        pItem->SetNodeId(QUuid());
        QCOMPARE(RowsOf(pItem), QString("all\n"));
    }

    void theRootBuildsTheCurrentPane()
    {
        FillStore(SmallTree(), Root({}, { Processor("s") }));
        g_pProcessorTreeData->SetSimulatorPane(true);
        auto* pItem = new CProcessorItem(NodeAll);
        pItem->SetNodeId(QUuid());
        QCOMPARE(RowsOf(pItem), QString("all\n  processor s\n    info s\n"));
    }

    void anUngroupedProcessorStandsBehindAllGroups()
    {
        const SProcessorAllNode node = SmallTree();
        FillStore(node);
        CProcessorItem item(NodeAll);
        item.SetNodeId(QUuid());
        const int nGroups = node.listGroup.size();
        QCOMPARE(item.rowCount(), nGroups + node.listProcessor.size());
        for (int nRow = nGroups; nRow < item.rowCount(); ++nRow) {
            QCOMPARE(item.child(nRow)->data(RoleNodeType).toInt(), int(NodeProcessor));
            QCOMPARE(item.child(nRow)->data(RoleNodeId).toUuid(), node.listProcessor.at(nRow - nGroups).idNode);
        }
    }

    void aGroupBuildsItsMembersInOrder()
    {
        FillStore(SmallTree());
        auto* pItem = new CProcessorItem(NodeGroup);
        pItem->SetNodeId(GroupId("Stage"));
        QCOMPARE(RowsOf(pItem), QString("group Stage\n  processor a\n    info a\n  processor b\n    info b\n"));
    }

    void aGroupThatTheStoreDoesNotKnowHasNoRows()
    {
        FillStore(SmallTree(), Root({ Group("Lab", { Processor("s") }) }));
        for (const QUuid& id : { GroupId("Nowhere"), GroupId("Lab"), ProcessorId("a"), QUuid() }) {
            CProcessorItem item(NodeGroup);
            item.SetNodeId(id);
            QCOMPARE(item.rowCount(), 0);
        }
    }

    void aGroupThatHasGoneLosesItsRows()
    {
        FillStore(SmallTree());
        CProcessorItem item(NodeGroup);
        item.SetNodeId(GroupId("Stage"));
        QCOMPARE(item.rowCount(), 2);
        FillStore(SProcessorAllNode());
        item.UpdateChildren();
        QCOMPARE(item.rowCount(), 0);
    }

    void aProcessorHasOneInformationRow()
    {
        CProcessorItem item(NodeProcessor);
        item.SetNodeId(ProcessorId("a"));
        QCOMPARE(item.rowCount(), 1);
        QCOMPARE(item.data(Qt::SizeHintRole).toSize(), QSize(0, 32));
        const auto* pInfo = dynamic_cast<CProcessorItem*>(item.child(0));
        QVERIFY(pInfo != nullptr);
        QCOMPARE(pInfo->data(RoleNodeType), QVariant(int(NodeInfo)));
        QCOMPARE(pInfo->data(RoleNodeId).userType(), int(QMetaType::QUuid));
        QCOMPARE(pInfo->data(RoleNodeId).toUuid(), ProcessorId("a"));
        QVERIFY(pInfo->GetNodeId().isNull());
        QCOMPARE(pInfo->data(Qt::SizeHintRole).toSize(), QSize(0, 92));
        QCOMPARE(pInfo->rowCount(), 0);
    }

    void aProcessorWithANewIdKeepsOneInformationRow()
    {
        CProcessorItem item(NodeProcessor);
        item.SetNodeId(ProcessorId("a"));
        item.SetNodeId(ProcessorId("b"));
        QCOMPARE(item.rowCount(), 1);
        QCOMPARE(item.child(0)->data(RoleNodeId).toUuid(), ProcessorId("b"));
    }

    void otherKindsNeverGetRows_data()
    {
        QTest::addColumn<int>("nKind");
        for (const int nKind : { -1, 0, int(NodeInfo), 5, 100 }) {
            QTest::addRow("kind %d", nKind) << nKind;
        }
    }

    void otherKindsNeverGetRows()
    {
        QFETCH(int, nKind);
        FillStore(SmallTree());
        for (const QUuid& id : { QUuid(), GroupId("Stage"), ProcessorId("a") }) {
            CProcessorItem item(nKind);
            item.SetNodeId(id);
            item.UpdateChildren();
            QCOMPARE(item.rowCount(), 0);
            QCOMPARE(item.GetNodeId(), id);
        }
    }

    void buildingAgainReplacesAllRows()
    {
        FillStore(SmallTree());
        QStandardItemModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        auto* pItem = new CProcessorItem(NodeAll);
        pItem->SetNodeId(QUuid());
        model.appendRow(pItem);
        const QPersistentModelIndex index = model.index(0, 0, pItem->index());
        pItem->UpdateChildren();
        QVERIFY(!index.isValid());
        FillStore(Root({ Group("New") }));
        pItem->UpdateChildren();
        QCOMPARE(TreeText(&model), QString("all\n  group New\n"));
    }
};

PTV_TEST_MAIN(CItemTest)

#include "tst_item.moc"
