#include "Builders.h"
#include "CNameRegistry.h"
#include "TestMain.h"
#include "nodes/EnNodeType.h"

#include <functional>
#include <type_traits>

namespace {

template <typename Node> using Change = std::function<void(Node&)>;

/// The record as another node of its own base sees it, so that the call goes through the slot.
bool MatchAsBase(SNode& node, const QString& strText)
{
    return node.MatchText(strText);
}

SProcessorNode Station()
{
    return Processor("Mixer 10.0 left").Type(12, "KX-4 desk").Ip("10.0.0.1");
}

/// A record of a library's own kind.
struct SOtherNode final : SNode
{
};

} // namespace

Q_DECLARE_METATYPE(SProcessorNode)
Q_DECLARE_METATYPE(Change<SProcessorNode>)
Q_DECLARE_METATYPE(Change<SProcessorGroupNode>)

/// The values that travel between the control library, the store and the rows.
class CNodeRecordsTest : public QObject
{
    Q_OBJECT

private slots:
    void kindsHaveTheNumbersThatBothSidesShare()
    {
        QCOMPARE(int(NodeAll), 1);
        QCOMPARE(int(NodeGroup), 2);
        QCOMPARE(int(NodeProcessor), 3);
        QCOMPARE(int(NodeInfo), 4);
    }

    void aNewRecordIsOpenAndOfNoKind()
    {
        const SOtherNode node;
        QCOMPARE(node.bExpanded, true);
        QVERIFY(node.strName.isNull());
        QCOMPARE(node.nNodeType, 0);
    }

    void aNewRootIsAnOpenAndEmptyRootNamedAllProcessors()
    {
        const SProcessorAllNode node;
        QCOMPARE(node.bExpanded, true);
        QCOMPARE(node.strName, QString("All processors"));
        QCOMPARE(node.nNodeType, 1);
        QVERIFY(node.listGroup.isEmpty());
        QVERIFY(node.listProcessor.isEmpty());
    }

    void aNewGroupIsAnOpenAndEmptyGroupNamedGroup1()
    {
        const SProcessorGroupNode node;
        QCOMPARE(node.bExpanded, true);
        QCOMPARE(node.strName, QString("Group 1"));
        QCOMPARE(node.nNodeType, 2);
        QVERIFY(node.idNode.isNull());
        QVERIFY(node.listProcessor.isEmpty());
        QVERIFY(node.idChief.isNull());
        QVERIFY(node.setAux.isEmpty());
    }

    void aNewProcessorIsOfflineAtTheLoopbackAddress()
    {
        const SProcessorNode node;
        QCOMPARE(node.bExpanded, true);
        QVERIFY(node.strName.isNull());
        QCOMPARE(node.nNodeType, 3);
        QVERIFY(node.idNode.isNull());
        QVERIFY(node.idAux.isNull());
        QCOMPARE(node.nModel, 12);
        QVERIFY(node.strType.isNull());
        QCOMPARE(node.nIP, 0x7F000001U);
        QCOMPARE(node.nPortA, 9999U);
        QCOMPARE(node.nPortB, 9099U);
        QCOMPARE(node.bOnline, false);
        QCOMPARE(node.nFailover, 0);
        QVERIFY(node.strProject.isNull());
        QCOMPARE(node.nChief, 0);
    }

    void recordsHaveOneVirtualOperationOnly()
    {
        QVERIFY(std::is_polymorphic_v<SNode>);
        QVERIFY(!std::has_virtual_destructor_v<SNode>);
        QVERIFY(!std::has_virtual_destructor_v<SProcessorNode>);
        QVERIFY((std::is_base_of_v<SNode, SProcessorAllNode>));
        QVERIFY((std::is_base_of_v<SNode, SProcessorGroupNode>));
        QVERIFY((!std::is_base_of_v<SProcessorGroupNode, SProcessorAllNode>));
        QVERIFY(std::is_copy_assignable_v<SProcessorAllNode>);
    }

    void defaultBuiltRecordsAreEqual()
    {
        QVERIFY(SProcessorNode() == SProcessorNode());
        QVERIFY(!(SProcessorNode() != SProcessorNode()));
        QVERIFY(SProcessorGroupNode() == SProcessorGroupNode());
        QVERIFY(!(SProcessorGroupNode() != SProcessorGroupNode()));
    }

    void twoProcessorsAreEqualWhenAllButTheKindIsEqual_data()
    {
        QTest::addColumn<Change<SProcessorNode>>("fnChange");
        QTest::addColumn<bool>("bEqual");
        using Fn = Change<SProcessorNode>;
        QTest::newRow("nothing") << Fn([](SProcessorNode&) { }) << true;
        QTest::newRow("nNodeType") << Fn([](SProcessorNode& node) { node.nNodeType = NodeInfo; }) << true;
        QTest::newRow("strName") << Fn([](SProcessorNode& node) { node.strName = "other"; }) << false;
        QTest::newRow("strName, case") << Fn([](SProcessorNode& node) { node.strName = node.strName.toUpper(); }) << false;
        QTest::newRow("bExpanded") << Fn([](SProcessorNode& node) { node.bExpanded = false; }) << false;
        QTest::newRow("idNode") << Fn([](SProcessorNode& node) { node.idNode = ProcessorId("other"); }) << false;
        QTest::newRow("idNode, last bit") << Fn([](SProcessorNode& node) { node.idNode.data4[7] ^= 1; }) << false;
        QTest::newRow("idAux") << Fn([](SProcessorNode& node) { node.idAux = ProcessorId("other"); }) << false;
        QTest::newRow("nModel") << Fn([](SProcessorNode& node) { node.nModel = 13; }) << false;
        QTest::newRow("strType") << Fn([](SProcessorNode& node) { node.strType = "KX-5"; }) << false;
        QTest::newRow("nIP") << Fn([](SProcessorNode& node) { node.nIP += 1; }) << false;
        QTest::newRow("nPortA") << Fn([](SProcessorNode& node) { node.nPortA += 1; }) << false;
        QTest::newRow("nPortB") << Fn([](SProcessorNode& node) { node.nPortB += 1; }) << false;
        QTest::newRow("bOnline") << Fn([](SProcessorNode& node) { node.bOnline = true; }) << false;
        QTest::newRow("nFailover") << Fn([](SProcessorNode& node) { node.nFailover = 2; }) << false;
        QTest::newRow("strProject") << Fn([](SProcessorNode& node) { node.strProject = "Opera"; }) << false;
        QTest::newRow("nChief") << Fn([](SProcessorNode& node) { node.nChief = 1; }) << false;
    }

    void twoProcessorsAreEqualWhenAllButTheKindIsEqual()
    {
        QFETCH(Change<SProcessorNode>, fnChange);
        QFETCH(bool, bEqual);
        const SProcessorNode node = Station();
        SProcessorNode other = node;
        fnChange(other);
        QCOMPARE(node == other, bEqual);
        QCOMPARE(other == node, bEqual);
        QCOMPARE(node != other, !bEqual);
        QCOMPARE(QList<SProcessorNode>{ node } == QList<SProcessorNode>{ other }, bEqual);
    }

    void twoGroupsAreEqualWhenAllButTheKindIsEqual_data()
    {
        QTest::addColumn<Change<SProcessorGroupNode>>("fnChange");
        QTest::addColumn<bool>("bEqual");
        using Fn = Change<SProcessorGroupNode>;
        QTest::newRow("nothing") << Fn([](SProcessorGroupNode&) { }) << true;
        QTest::newRow("nNodeType") << Fn([](SProcessorGroupNode& node) { node.nNodeType = NodeAll; }) << true;
        QTest::newRow("strName") << Fn([](SProcessorGroupNode& node) { node.strName = "stage"; }) << false;
        QTest::newRow("bExpanded") << Fn([](SProcessorGroupNode& node) { node.bExpanded = false; }) << false;
        QTest::newRow("idNode") << Fn([](SProcessorGroupNode& node) { node.idNode = QUuid(); }) << false;
        QTest::newRow("a member more") << Fn([](SProcessorGroupNode& node) { node.listProcessor.append(Station()); }) << false;
        QTest::newRow("a member less") << Fn([](SProcessorGroupNode& node) { node.listProcessor.removeLast(); }) << false;
        QTest::newRow("a member's field") << Fn([](SProcessorGroupNode& node) { node.listProcessor[1].bOnline = true; }) << false;
        QTest::newRow("a member's kind") << Fn([](SProcessorGroupNode& node) { node.listProcessor[1].nNodeType = 9; }) << true;
        QTest::newRow("order of members") << Fn([](SProcessorGroupNode& node) { node.listProcessor.move(0, 1); }) << false;
        QTest::newRow("idChief") << Fn([](SProcessorGroupNode& node) { node.idChief = ProcessorId("b"); }) << false;
        QTest::newRow("setAux") << Fn([](SProcessorGroupNode& node) { node.setAux.insert(3); }) << false;
    }

    void twoGroupsAreEqualWhenAllButTheKindIsEqual()
    {
        QFETCH(Change<SProcessorGroupNode>, fnChange);
        QFETCH(bool, bEqual);
        const SProcessorGroupNode node = Group("Stage", { Processor("a"), Processor("b") }).Chief("a").Aux({ 1, 2 });
        SProcessorGroupNode other = node;
        fnChange(other);
        QCOMPARE(node == other, bEqual);
        QCOMPARE(other == node, bEqual);
        QCOMPARE(node != other, !bEqual);
        QCOMPARE(QList<SProcessorGroupNode>{ node } == QList<SProcessorGroupNode>{ other }, bEqual);
    }

    void listsAreEqualWhenSizeAndOrderAreEqual()
    {
        using List = QList<SProcessorNode>;
        const List list{ Processor("a"), Processor("b") };
        QVERIFY(list == (List{ Processor("a"), Processor("b") }));
        QVERIFY(list != (List{ Processor("b"), Processor("a") }));
        QVERIFY(list != (List{ Processor("a") }));
        QVERIFY(list != List());
        QVERIFY(List() == List());
    }

    void theNumbersOfAGroupAreEqualInAnyOrder()
    {
        SProcessorGroupNode node = Group("Stage");
        SProcessorGroupNode other = node;
        for (int i = 0; i < 100; ++i) {
            node.setAux.insert(i);
            other.setAux.insert(99 - i);
        }
        QVERIFY(node == other);
    }

    void aCopyLeavesItsSourceAlone()
    {
        const SProcessorAllNode node = Root({ Group("Stage", { Processor("a") }) }, { Processor("b") });
        SProcessorAllNode copy = node;
        copy.listGroup[0].bExpanded = false;
        copy.listGroup[0].listProcessor[0].bExpanded = false;
        copy.listGroup[0].setAux.insert(7);
        copy.listProcessor[0].bExpanded = false;
        copy.strName.append(" of the copy");
        QVERIFY(node.listGroup.at(0) == SProcessorGroupNode(Group("Stage", { Processor("a") })));
        QVERIFY(node.listProcessor.at(0) == SProcessorNode(Processor("b")));
        QCOMPARE(node.strName, QString("All processors"));
    }

    void readingACopyOfAListSharesItsData()
    {
        const SProcessorAllNode node = Root({ Group("Stage", { Processor("a") }) }, { Processor("b") });
        SProcessorAllNode copy = node;
        QCOMPARE(copy.listGroup.at(0).listProcessor.at(0).strName, QString("a"));
        QVERIFY(copy.listGroup.isSharedWith(node.listGroup));
        QVERIFY(copy.listProcessor.isSharedWith(node.listProcessor));
        copy.listProcessor[0].bExpanded = false;
        QVERIFY(!copy.listProcessor.isSharedWith(node.listProcessor));
        QVERIFY(copy.listGroup.isSharedWith(node.listGroup));
    }

    void aRootNeverMatches()
    {
        SProcessorAllNode node = Root({ Group("Stage") }, { Processor("b") });
        for (const bool bExpanded : { true, false }) {
            node.bExpanded = bExpanded;
            QVERIFY(!MatchAsBase(node, "All"));
            QVERIFY(!MatchAsBase(node, ""));
            QVERIFY(!MatchAsBase(node, "Stage"));
            QCOMPARE(node.bExpanded, bExpanded);
        }
    }

    void aProcessorMatchesByItsFirstFieldThatDoes_data()
    {
        QTest::addColumn<SProcessorNode>("node");
        QTest::addColumn<QString>("strText");
        QTest::addColumn<bool>("bMatches");
        QTest::addColumn<bool>("bExpanded");
        QTest::newRow("empty text") << Station() << "" << true << false;
        QTest::newRow("null text") << Station() << QString() << true << false;
        QTest::newRow("type") << Station() << "KX-4" << true << true;
        QTest::newRow("type, other case") << Station() << "kx-4 DESK" << true << true;
        QTest::newRow("name") << Station() << "Mixer" << true << false;
        QTest::newRow("name, other case") << Station() << "mIXER 10.0 LEFT" << true << false;
        QTest::newRow("type before name") << SProcessorNode(Processor("Desk").Type(1, "desk")) << "desk" << true << true;
        QTest::newRow("type before address")
            << SProcessorNode(Processor("a").Type(1, "v10.0").Ip("10.0.0.1")) << "10.0" << true << true;
        QTest::newRow("address") << SProcessorNode(Processor("a").Ip("10.0.0.1")) << "10.0" << true << true;
        QTest::newRow("whole address") << SProcessorNode(Processor("a").Ip("192.168.10.254")) << "192.168.10.254" << true << true;
        QTest::newRow("name before address") << Station() << "10.0" << true << false;
        QTest::newRow("default address") << SProcessorNode() << "127.0.0.1" << true << true;
        QTest::newRow("nothing") << Station() << "violin" << false << false;
        QTest::newRow("longer than the name") << Station() << "Mixer 10.0 left side" << false << false;
        QTest::newRow("project does not count") << SProcessorNode(Processor("a").Project("Opera")) << "Opera" << false << false;
        QTest::newRow("CJK name") << SProcessorNode(Processor(QString::fromUtf8("混音台"))) << QString::fromUtf8("音") << true
                                  << false;
        QTest::newRow("blanks count") << Station() << " " << true << true;
        QTest::newRow("no wildcards") << Station() << "M*r" << false << false;
    }

    void aProcessorMatchesByItsFirstFieldThatDoes()
    {
        QFETCH(SProcessorNode, node);
        QFETCH(QString, strText);
        for (const bool bBefore : { true, false }) {
            SProcessorNode copy = node;
            copy.bExpanded = bBefore;
            QTEST(MatchAsBase(copy, strText), "bMatches");
            QTEST(copy.bExpanded, "bExpanded");
            copy.bExpanded = node.bExpanded;
            QVERIFY(copy == node);
        }
    }

    void aGroupMatchesByNameOrMember_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<bool>("bMatches");
        QTest::addColumn<bool>("bOpens");
        QTest::newRow("empty text") << "" << true << false;
        QTest::newRow("null text") << QString() << true << false;
        QTest::newRow("name without any member") << "stage" << true << false;
        QTest::newRow("name and member") << "e" << true << false;
        QTest::newRow("member's name") << "mixer" << true << true;
        QTest::newRow("second member's type") << "player" << true << true;
        QTest::newRow("member's address") << "10.0.0.1" << true << true;
        QTest::newRow("nothing") << "violin" << false << false;
    }

    void aGroupMatchesByNameOrMember()
    {
        QFETCH(QString, strText);
        QFETCH(bool, bOpens);
        for (const bool bBefore : { true, false }) {
            SProcessorGroupNode node = Group("Stage", { Station(), Processor("b").Type(3, "Player") }).Expanded(bBefore);
            QTEST(MatchAsBase(node, strText), "bMatches");
            QCOMPARE(node.bExpanded, bOpens || bBefore);
        }
    }

    void aMatchInAGroupLeavesItsMembersAsTheyAre()
    {
        const SProcessorGroupNode node = Group("Stage", { Processor("a").Expanded(false), Processor("b").Expanded(true) });
        SProcessorGroupNode copy = node;
        QVERIFY(copy.MatchText("127"));
        QVERIFY(copy.MatchText("b"));
        QVERIFY(!copy.MatchText("violin"));
        QVERIFY(copy.listProcessor.isSharedWith(node.listProcessor));
        QVERIFY(copy.listProcessor == node.listProcessor);
    }
};

PTV_TEST_MAIN_CORE(CNodeRecordsTest)

#include "tst_noderecords.moc"
