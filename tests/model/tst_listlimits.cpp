#include "CModelFixture.h"
#include "TestMain.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

namespace {

QString NameOf(int n)
{
    return QString("P%1").arg(n, 5, 10, QChar('0'));
}

/// n groups, and n processors of which every second is a member: of the last group, or alone in one.
SProcessorAllNode Large(int n, bool bOneGroup)
{
    QVector<QList<SProcessorNode>> vecMember(n);
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < n; ++i) {
        const SProcessorNode node = Processor(NameOf(i)).Ip(quint32(0x0A000000 + i)).Expanded(i % 3 == 0);
        (i % 2 != 0 ? vecMember[bOneGroup ? n - 1 : i] : listProcessor).append(node);
    }
    QList<SProcessorGroupNode> listGroup;
    for (int i = 0; i < n; ++i) {
        listGroup.append(Group(QString("G%1").arg(i, 5, 10, QChar('0')), vecMember.at(i)).Expanded(i % 2 == 0));
    }
    return Root(listGroup, listProcessor);
}

QUuid GroupIdOf(int n)
{
    return GroupId(QString("G%1").arg(n, 5, 10, QChar('0')));
}

} // namespace

/// Lists as large as the tool bar lets them grow, and ten times that.
class CListLimitsTest : public QObject
{
    Q_OBJECT

private slots:
    void aLargeListGoesThroughEveryPath_data()
    {
        QTest::addColumn<int>("n");
        QTest::addColumn<bool>("bOneGroup");
        QTest::newRow("at the limits") << 256 << false;
        QTest::newRow("at the limits, one large group") << 256 << true;
        QTest::newRow("ten times the limits") << 2560 << false;
        QTest::newRow("ten times the limits, one large group") << 2560 << true;
    }

    void aLargeListGoesThroughEveryPath()
    {
        QFETCH(int, n);
        QFETCH(bool, bOneGroup);
        CModelFixture fixture(Large(n, bOneGroup));
        CheckStore(n, bOneGroup);
        fixture.Unwatch();
        fixture.Rebuild();
        CheckRows(fixture, n, bOneGroup);
        fixture.Rebuild();
        fixture.Watch();
        CheckRows(fixture, n, bOneGroup);
        CheckFilter(fixture, n);
    }

private:
    static void CheckStore(int n, bool bOneGroup)
    {
        QCOMPARE(g_pProcessorTreeData->GetProcessorCount(), n);
        QCOMPARE(g_pProcessorTreeData->GetGroupProcessorCount(GroupIdOf(n - 1)), bOneGroup ? n / 2 : 1);
        QCOMPARE(g_pProcessorTreeData->GetGroup(GroupIdOf(n - 1)).idNode, GroupIdOf(n - 1));
        for (const int i : { 0, 1, n / 2, n - 2, n - 1 }) {
            QCOMPARE(g_pProcessorTreeData->GetProcessor(ProcessorId(NameOf(i))).strName, NameOf(i));
            QCOMPARE(g_pProcessorTreeData->GetNodeName(ProcessorId(NameOf(i))), NameOf(i));
        }
    }

    static void CheckRows(CModelFixture& fixture, int n, bool bOneGroup)
    {
        QCOMPARE(fixture.pModel->rowCount(fixture.pModel->GetRootIndex()), n + n / 2);
        QCOMPARE(fixture.pModel->rowCount(fixture.Index(GroupIdOf(n - 1))), bOneGroup ? n / 2 : 1);
        for (int i = 0; i < n; ++i) {
            QCOMPARE(fixture.Index(GroupIdOf(i)).row(), i);
            QCOMPARE(fixture.pTree->isExpanded(fixture.Index(GroupIdOf(i))), i % 2 == 0);
            const QModelIndex index = fixture.Index(ProcessorId(NameOf(i)));
            QCOMPARE(index.data(RoleNodeType).toInt(), int(NodeProcessor));
            QCOMPARE(fixture.pTree->isExpanded(index), i % 3 == 0);
            QCOMPARE(fixture.pModel->rowCount(index), 1);
        }
    }

    static void CheckFilter(CModelFixture& fixture, int n)
    {
        fixture.pModel->SetSearchText(NameOf(n - 1));
        const QModelIndex index = fixture.Index(ProcessorId(NameOf(n - 1)));
        QVERIFY(!fixture.pTree->isRowHidden(index.row(), index.parent()));
        QVERIFY(!fixture.pTree->isRowHidden(index.parent().row(), fixture.pModel->GetRootIndex()));
        QVERIFY(fixture.pTree->isRowHidden(0, fixture.pModel->GetRootIndex()));
        QVERIFY(fixture.pTree->isRowHidden(n + n / 2 - 1, fixture.pModel->GetRootIndex()));
        fixture.pModel->SetSearchText(QString());
        for (int nRow = 0; nRow < n + n / 2; ++nRow) {
            QVERIFY(!fixture.pTree->isRowHidden(nRow, fixture.pModel->GetRootIndex()));
        }
    }
};

PTV_TEST_MAIN(CListLimitsTest)

#include "tst_listlimits.moc"
