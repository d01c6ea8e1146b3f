#include "Builders.h"
#include "CNameRegistry.h"
#include "CorvidControl/list/PaneMerge.h"
#include "ListText.h"
#include "TestMain.h"

#include <QRandomGenerator>

#include <algorithm>
#include <random>

namespace {

// "Stage: alpha beta | Hall: | loose": groups with their members, then the processors of the root.
SProcessorAllNode Tree(const QString& strText)
{
    SProcessorAllNode node;
    const QStringList listPart = strText.split(QLatin1Char('|'));
    for (const QString& strPart : listPart) {
        QList<SProcessorNode> listProcessor;
        const QStringList listName
            = strPart.section(QLatin1Char(':'), -1).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString& strName : listName) {
            listProcessor.append(Processor(strName).Ip(qHash(strName)));
        }
        if (strPart.contains(QLatin1Char(':'))) {
            node.listGroup.append(Group(strPart.section(QLatin1Char(':'), 0, 0).trimmed(), listProcessor));
        } else {
            node.listProcessor = listProcessor;
        }
    }
    return node;
}

QString Line(const SProcessorAllNode& node)
{
    QStringList listPart;
    for (const SProcessorGroupNode& group : node.listGroup) {
        QString strPart = group.strName + QLatin1Char(':');
        for (const SProcessorNode& processor : group.listProcessor) {
            strPart += QLatin1Char(' ') + processor.strName;
        }
        listPart.append(strPart);
    }
    QStringList listName;
    for (const SProcessorNode& processor : node.listProcessor) {
        listName.append(processor.strName);
    }
    listPart.append(listName.join(QLatin1Char(' ')));
    return listPart.join(QStringLiteral(" | "));
}

SProcessorAllNode Chief(SProcessorAllNode node, const QString& strName)
{
    for (SProcessorGroupNode& group : node.listGroup) {
        for (SProcessorNode& processor : group.listProcessor) {
            if (processor.strName == strName) {
                processor.nChief = 1;
                group.idChief = processor.idNode;
            }
        }
    }
    return node;
}

// Up to eight groups and twelve processors of which each is somewhere or nowhere, with names of their own.
SProcessorAllNode BuildRandom(std::mt19937& random)
{
    SProcessorAllNode node;
    for (int n = 0; n < 8; ++n) {
        if (random() % 3 != 0) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n)));
            node.listGroup.last().strName += QString::number(random() % 3);
            node.listGroup.last().setAux = { static_cast<int>(random() % 3) };
        }
    }
    std::shuffle(node.listGroup.begin(), node.listGroup.end(), random);
    QVector<int> vecProcessor{ 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 };
    std::shuffle(vecProcessor.begin(), vecProcessor.end(), random);
    for (const int n : std::as_const(vecProcessor)) {
        SProcessorNode processor = Processor(QStringLiteral("p%1").arg(n)).Ip(0x0A000000U + static_cast<quint32>(n));
        processor.strName += QString::number(random() % 3);
        processor.nPortA = random() % 3;
        processor.nPortB = random() % 3;
        processor.nModel = static_cast<qint32>(random() % 3);
        processor.strType = QString::number(processor.nModel);
        processor.idAux = ProcessorId(QStringLiteral("aux %1").arg(random() % 3));
        const int nHome = static_cast<int>(random() % 10);
        if (nHome < node.listGroup.size()) {
            node.listGroup[nHome].listProcessor.append(processor);
        } else if (nHome != 9) {
            node.listProcessor.append(processor);
        }
    }
    for (SProcessorGroupNode& group : node.listGroup) {
        if (!group.listProcessor.isEmpty() && random() % 2 != 0) {
            group.idChief = group.listProcessor.first().idNode;
            group.listProcessor.first().nChief = 1;
        }
    }
    return node;
}

QList<QUuid> GetIds(const SProcessorAllNode& node)
{
    QList<QUuid> listId;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listId.append(group.idNode);
        for (const SProcessorNode& processor : group.listProcessor) {
            listId.append(processor.idNode);
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        listId.append(processor.idNode);
    }
    return listId;
}

} // namespace

/// What becomes of a pane when an edit is taken back while others change it too.
class CListMergeTest : public QObject
{
    Q_OBJECT

private slots:
    void onlyWhatTheEditChangedIsTakenBack_data()
    {
        QTest::addColumn<QString>("strFrom");
        QTest::addColumn<QString>("strTo");
        QTest::addColumn<QString>("strPresent");
        QTest::addColumn<QString>("strResult");
        const auto row = [](const char* szName, const char* szFrom, const char* szTo, const char* szPresent,
                            const char* szResult) { QTest::newRow(szName) << szFrom << szTo << szPresent << szResult; };
        row("a deleted processor comes back where it was", "a c", "a b c", "a c", "a b c");
        row("into its group", "S: a c | x", "S: a b c | x", "S: a c | x", "S: a b c | x");
        row("behind its nearest neighbour that is left", "a b d", "a b c d", "a d", "a c d");
        row("to the front when none is left", "a d", "a c d", "d", "c d");
        row("before what came since", "a", "a b", "a new", "a b new");
        row("to the end of the root when its group is gone", "S: a | x", "S: a b | x", "x new", "x new b");
        row("not when it was found again", "a", "a b", "a new b", "a new b");
        row("to its group when it was found again", "S: | x", "S: a | x", "S: | H: | x new a", "S: a | H: | x new");
        row("not when it was moved to another since", "S: | x", "S: a | x", "S: | H: a | x", "S: | H: a | x");
        row("a deleted group comes back with its processors", "H: | x", "S: a b | H: | x", "H: | x", "S: a b | H: | x");
        row("behind the groups that came since", "", "S: a | ", "New: | ", "S: a | New: | ");
        row("without a processor that was found again", "x", "S: a b | x", "x a", "S: a b | x");
        row("an added processor goes", "a b", "a", "a b new", "a new");
        row("it went already", "a b", "a", "a", "a");
        row("an added group goes", "S: | x", "x", "S: | x", "x");
        row("what came into it since moves to the root", "S: | x", "x", "S: new | x y", "x y new");
        row("a processor moves back", "S: | x a", "S: a | x", "S: | x a new", "S: a | x new");
        row("to its place", "S: a c | b", "S: a b c | ", "S: a new c | b", "S: a b new c | ");
        row("not when its old group is gone", "S: | H: a | ", "S: a | H: | ", "H: a | ", "H: a | ");
        row("not when it is gone itself", "S: | a", "S: a | ", "S: | ", "S: | ");
        row("another that was moved since stays there", "S: b | H: | a", "S: a b | H: | ", "S: | H: b | a", "S: a | H: b | ");
        row("an ungrouping", "H: | x a b", "S: a b | H: | x", "H: | x a b", "S: a b | H: | x");
        row("an ungrouping, one was deleted since", "x a b", "S: a b | x", "x b new", "S: b | x new");
        row("the order of groups", "S: | H: | F: | ", "F: | S: | H: | ", "S: | H: | New: | F: | ", "F: | S: | H: | New: | ");
        row("the order of processors", "b a c", "a b c", "b new a c", "new a b c");
        row("an order that the edit left alone", "b a c", "b a", "a b c", "a b");
    }

    void onlyWhatTheEditChangedIsTakenBack()
    {
        QFETCH(QString, strFrom);
        QFETCH(QString, strTo);
        QFETCH(QString, strPresent);
        QFETCH(QString, strResult);
        const SPaneMerge merge = PaneMerge::Merge(Tree(strFrom), Tree(strTo), Tree(strPresent));
        QCOMPARE(Line(merge.result).simplified(), Line(Tree(strResult)).simplified());
        QCOMPARE(merge.bChanged, Line(Tree(strResult)) != Line(Tree(strPresent)));
        QCOMPARE(merge.nTakenIP, 0U);
    }

    void aNameIsTakenBackWhereTheEditGaveIt()
    {
        SProcessorAllNode from = Tree("S: a b | ");
        SProcessorAllNode present = from;
        from.listGroup[0].listProcessor[0].strName = "named";
        present.listGroup[0].listProcessor[0].strName = "named again";
        present.listGroup[0].listProcessor[1].strName = "since";
        present.listGroup[0].strName = "Hall";
        QCOMPARE(Line(PaneMerge::Merge(from, Tree("S: a b | "), present).result), QString("Hall: a since | "));
    }

    void aChiefIsTakenBack_data()
    {
        QTest::addColumn<QString>("strFrom");
        QTest::addColumn<QString>("strTo");
        QTest::addColumn<QString>("strPresent");
        QTest::addColumn<QString>("strChief");
        QTest::newRow("to none") << "a" << "" << "a" << "";
        QTest::newRow("to the one before") << "a" << "b" << "a" << "b";
        QTest::newRow("over one chosen since") << "a" << "b" << "c" << "b";
        QTest::newRow("not where the edit left it alone") << "a" << "a" << "c" << "c";
    }

    void aChiefIsTakenBack()
    {
        QFETCH(QString, strFrom);
        QFETCH(QString, strTo);
        QFETCH(QString, strPresent);
        QFETCH(QString, strChief);
        const SProcessorAllNode tree = Tree("S: a b c | ");
        const SPaneMerge merge = PaneMerge::Merge(Chief(tree, strFrom), Chief(tree, strTo), Chief(tree, strPresent));
        QCOMPARE(ListText::Build(merge.result), ListText::Build(Chief(tree, strChief)));
    }

    void aChiefThatComesBackLeadsItsGroupAgain()
    {
        const SProcessorAllNode to = Chief(Tree("S: a b | "), "a");
        QCOMPARE(ListText::Build(PaneMerge::Merge(Tree("S: b | "), to, Tree("S: b | ")).result), ListText::Build(to));
    }

    void aChiefThatCameFromOutsideSinceStays()
    {
        const SProcessorAllNode with = Chief(Tree("S: a b | "), "a");
        const SProcessorAllNode without = Tree("S: b | ");
        QCOMPARE(ListText::Build(PaneMerge::Merge(without, with, Chief(without, "b")).result),
                 ListText::Build(Chief(Tree("S: a b | "), "b")));
        QCOMPARE(ListText::Build(PaneMerge::Merge(with, without, Chief(Tree("S: a b | "), "b")).result),
                 ListText::Build(Chief(without, "b")));
    }

    void aChiefWhoseGroupIsGoneIsNoneAnyMore()
    {
        const SPaneMerge merge = PaneMerge::Merge(Tree("S: b | "), Chief(Tree("S: a b | "), "a"), Tree("b"));
        QCOMPARE(ListText::Build(merge.result), ListText::Build(Tree("b a")));
    }

    void aChiefThatIsMovedBackLeavesNoneBehind()
    {
        const SProcessorAllNode present = Chief(Tree("S: | H: a b | "), "a"); // chosen since
        const SPaneMerge merge = PaneMerge::Merge(Tree("S: | H: a b | "), Tree("S: a | H: b | "), present);
        QCOMPARE(ListText::Build(merge.result), ListText::Build(Tree("S: a | H: b | ")));
    }

    void whatIsFoldedAndReportedStays()
    {
        SProcessorAllNode present = Tree("S: a b | ");
        present.bExpanded = present.listGroup[0].bExpanded = false;
        present.listGroup[0].listProcessor[0].bOnline = true;
        present.listGroup[0].listProcessor[0].strProject = "Aurora";
        present.listGroup[0].listProcessor[0].nFailover = 2;
        SProcessorAllNode from = Tree("S: a b | ");
        SProcessorAllNode to = Tree("S: a | ");
        for (SProcessorAllNode* pTree : { &from, &to }) { // each differs from the present, and they differ from each other
            pTree->bExpanded = pTree == &from;
            pTree->listGroup[0].bExpanded = pTree == &to;
            pTree->listGroup[0].listProcessor[0].bExpanded = pTree == &to;
            pTree->listGroup[0].listProcessor[0].bOnline = pTree == &from;
            pTree->listGroup[0].listProcessor[0].strProject = pTree == &from ? "Nocturne" : "";
            pTree->listGroup[0].listProcessor[0].nFailover = pTree == &from ? 1 : 0;
        }
        const SPaneMerge merge = PaneMerge::Merge(from, to, present);
        QVERIFY(!merge.result.bExpanded && !merge.result.listGroup[0].bExpanded);
        QCOMPARE(merge.result.listGroup[0].listProcessor[0], present.listGroup[0].listProcessor[0]);
        QCOMPARE(merge.listGone.size(), 1);
    }

    void aProcessorComesBackAsItIsHeardNow()
    {
        const SProcessorNode heard = Processor("b").Online().Backup().Project("Aurora");
        const SPaneMerge merge = PaneMerge::Merge(Tree("a"), Tree("a b"), Tree("a"), { { heard.idNode, heard } });
        QCOMPARE(merge.listBack.size(), 1);
        const SProcessorNode back = merge.result.listProcessor.at(1);
        QVERIFY(back.bOnline && back.nFailover == 2 && back.strProject == "Aurora");
        QCOMPARE(back.nIP, Tree("b").listProcessor.at(0).nIP);
    }

    void anAddressThatIsTakenSinceIsFound()
    {
        SProcessorAllNode present = Tree("a new");
        present.listProcessor[1].nIP = Tree("b").listProcessor.at(0).nIP;
        QCOMPARE(PaneMerge::Merge(Tree("a"), Tree("a b"), present).nTakenIP, present.listProcessor[1].nIP);
        QCOMPARE(PaneMerge::Merge(Tree("a"), Tree("a c"), present).nTakenIP, 0U);
    }

    void anAddressThatWasThereTwiceIsTakenBackSo()
    {
        SProcessorAllNode to = Tree("a b");
        to.listProcessor[1].nIP = to.listProcessor[0].nIP;
        const SProcessorAllNode from = Tree("a");
        QCOMPARE(PaneMerge::Merge(from, to, from).nTakenIP, 0U);
    }

    void anImportIsTakenBackToTheLastField()
    {
        SProcessorAllNode to = Tree("S: a | ");
        to.listGroup[0].setAux = { 1, 2 };
        SProcessorNode& processor = to.listGroup[0].listProcessor[0];
        processor = Processor("a").Ip("10.0.0.1").Ports(1, 2).Type(7, "KX").Aux(ProcessorId("aux"));
        const SPaneMerge merge = PaneMerge::Merge(Tree("S: a | "), to, Tree("S: a | "));
        QCOMPARE(merge.result.listGroup, to.listGroup);
        QCOMPARE(merge.listBack.size(), 1); // the network knows it by its old address
    }

    void anyEditIsTakenBackWhole_data()
    {
        QTest::addColumn<quint32>("nSeed");
        const quint32 nFirst = QRandomGenerator::global()->generate();
        for (quint32 n = 0; n < 300; ++n) {
            QTest::addRow("seed %u", nFirst + n) << nFirst + n;
        }
    }

    void anyEditIsTakenBackWhole()
    {
        QFETCH(quint32, nSeed);
        std::mt19937 random(nSeed);
        const SProcessorAllNode from = BuildRandom(random);
        const SProcessorAllNode to = BuildRandom(random);
        QCOMPARE(ListText::BuildExact(PaneMerge::Merge(from, to, from).result), ListText::BuildExact(to));
        QCOMPARE(ListText::BuildExact(PaneMerge::Merge(to, from, to).result), ListText::BuildExact(from));
        QVERIFY(!PaneMerge::Merge(from, from, to).bChanged);
    }

    void noNodeIsLostOrDoubledWhateverCameSince_data()
    {
        anyEditIsTakenBackWhole_data();
    }

    void noNodeIsLostOrDoubledWhateverCameSince()
    {
        QFETCH(quint32, nSeed);
        std::mt19937 random(nSeed);
        const SProcessorAllNode from = BuildRandom(random);
        const SProcessorAllNode to = BuildRandom(random);
        const SProcessorAllNode present = BuildRandom(random);
        QList<QUuid> listWanted;
        const QList<QUuid> listPresent = GetIds(present);
        for (const QUuid& id : listPresent) {
            if (GetIds(to).contains(id) || !GetIds(from).contains(id)) {
                listWanted.append(id);
            }
        }
        const QList<QUuid> listTo = GetIds(to);
        for (const QUuid& id : listTo) {
            if (!GetIds(from).contains(id) && !listPresent.contains(id)) {
                listWanted.append(id);
            }
        }
        QList<QUuid> listResult = GetIds(PaneMerge::Merge(from, to, present).result);
        std::sort(listWanted.begin(), listWanted.end());
        std::sort(listResult.begin(), listResult.end());
        QCOMPARE(listResult, listWanted);
    }
};

PTV_TEST_MAIN_CORE(CListMergeTest)
#include "tst_listmerge.moc"
