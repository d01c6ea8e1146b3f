#include "Builders.h"
#include "CBracketTranslator.h"
#include "CNameRegistry.h"
#include "CPaintedRow.h"
#include "CReferenceRow.h"
#include "IconColour.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "nodes/EnNodeType.h"

namespace {

const QString strNormalIcon = QStringLiteral(":/image/treeView/groupNode/group_normal.svg");
const QString strSelectedIcon = QStringLiteral(":/image/treeView/groupNode/group_selected.svg");
const QString strChiefIcon = QStringLiteral(":/image/treeView/groupNode/group_hasChief.svg");
const QString strStage = QStringLiteral("Stage");
const QString strLongName = QStringLiteral("A group with a name that is far too long for its row");
const QColor colourText(186, 190, 196);
const QRectF rcIcon(30, 48, 16, 16);
const QRectF rcText(49, 48, 211, 16);

QList<SProcessorNode> Processors(int nCount)
{
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < nCount; ++i) {
        listProcessor.append(Processor(QStringLiteral("processor %1").arg(i)));
    }
    return listProcessor;
}

CPaintedRow GroupRow(const QString& strName = strStage)
{
    return { int(NodeGroup), GroupId(strName) };
}

CPaintedRow RootRow()
{
    return { int(NodeAll), QUuid() };
}

QImage Expected(const CPaintedRow& row, const QString& strText, const QString& strIcon = strNormalIcon,
                const QColor& colour = colourText)
{
    return CReferenceRow(row).Background().Icon(strIcon, rcIcon).Text(strText, rcText, colour).Image();
}

} // namespace

Q_DECLARE_METATYPE(SProcessorAllNode)

class CGroupRowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.SetSimulatorPane(false);
        store.SetChiefMode(false);
        store.Show(Root({}));
    }

    void emptyGroupShowsItsBareName()
    {
        store.Show(Root({ Group(strStage) }));
        CPaintedRow row = GroupRow();
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("Stage")));
    }

    void groupShowsNameAndCountWithoutABlank_data()
    {
        QTest::addColumn<int>("nCount");
        QTest::addColumn<QString>("strText");
        QTest::newRow("one") << 1 << QStringLiteral("Stage(1)");
        QTest::newRow("three") << 3 << QStringLiteral("Stage(3)");
        QTest::newRow("many") << 1234 << QStringLiteral("Stage(1234)");
    }

    void groupShowsNameAndCountWithoutABlank()
    {
        QFETCH(int, nCount);
        QFETCH(QString, strText);
        store.Show(Root({ Group(strStage, Processors(nCount)) }));
        CPaintedRow row = GroupRow();
        QCOMPARE(row.Paint(), Expected(row, strText));
    }

    void percentSignsInANameAreNoPlaceholders()
    {
        const QString strName = QStringLiteral("at 100%1 %2");
        store.Show(Root({ Group(strName, Processors(2)) }));
        CPaintedRow row = GroupRow(strName);
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("at 100%1 %2(2)")));
    }

    void rootCountsGroupedAndLooseProcessors_data()
    {
        QTest::addColumn<SProcessorAllNode>("root");
        QTest::addColumn<QString>("strText");
        const QList<SProcessorNode> listOne = { Processor(QStringLiteral("a")) };
        const QList<SProcessorNode> listTwo = { Processor(QStringLiteral("b")), Processor(QStringLiteral("c")) };
        QTest::newRow("nothing") << Root({}) << "All processors(0)";
        QTest::newRow("groups only") << Root({ Group(strStage), Group(QStringLiteral("Hall")) }) << "All processors(0)";
        QTest::newRow("loose only") << Root({}, listTwo) << "All processors(2)";
        QTest::newRow("grouped only") << Root({ Group(strStage, listOne) }) << "All processors(1)";
        QTest::newRow("both") << Root({ Group(strStage, listOne), Group(QStringLiteral("Hall")) }, listTwo)
                              << "All processors(3)";
    }

    void rootCountsGroupedAndLooseProcessors()
    {
        QFETCH(SProcessorAllNode, root);
        QFETCH(QString, strText);
        store.Show(root);
        CPaintedRow row = RootRow();
        QCOMPARE(row.Paint(), Expected(row, strText));
    }

    void rootCountsTheCurrentPane()
    {
        store.Show(Root({}, Processors(3)));
        store.ShowSimulators(Root({}, Processors(1)));
        CPaintedRow row = RootRow();
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("All processors(3)")));
        store.SetSimulatorPane(true);
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("All processors(1)")));
    }

    void rootTextIsTranslatedGroupTextIsNot()
    {
        const CBracketTranslator translator;
        store.Show(Root({ Group(strStage, Processors(2)) }));
        CPaintedRow rowRoot = RootRow();
        CPaintedRow rowGroup = GroupRow();
        QCOMPARE(rowRoot.Paint(), Expected(rowRoot, QStringLiteral("<All processors(2)>")));
        QCOMPARE(rowGroup.Paint(), Expected(rowGroup, QStringLiteral("Stage(2)")));
    }

    void rootNeverShowsAChief()
    {
        store.SetChiefMode(true);
        store.Show(Root({ Group(strStage, Processors(1)).Chief(QStringLiteral("processor 0")) }));
        CPaintedRow row = RootRow();
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("All processors(1)")));
    }

    void iconByChiefModeAndSelection_data()
    {
        QTest::addColumn<bool>("bHasChief");
        QTest::addColumn<bool>("bChiefMode");
        QTest::addColumn<bool>("bSelected");
        QTest::addColumn<QString>("strIcon");
        QTest::newRow("plain") << false << false << false << strNormalIcon;
        QTest::newRow("selected") << false << false << true << strSelectedIcon;
        QTest::newRow("without a Chief, mode on") << false << true << false << strNormalIcon;
        QTest::newRow("selected without a Chief, mode on") << false << true << true << strSelectedIcon;
        QTest::newRow("with a Chief, mode off") << true << false << false << strNormalIcon;
        QTest::newRow("selected with a Chief, mode off") << true << false << true << strSelectedIcon;
        QTest::newRow("with a Chief") << true << true << false << strChiefIcon;
        QTest::newRow("selected with a Chief") << true << true << true << strChiefIcon;
    }

    void iconByChiefModeAndSelection()
    {
        QFETCH(bool, bHasChief);
        QFETCH(bool, bChiefMode);
        QFETCH(bool, bSelected);
        QFETCH(QString, strIcon);
        CGroupBuilder group = Group(strStage, Processors(1));
        store.SetChiefMode(bChiefMode);
        store.Show(Root({ bHasChief ? group.Chief(QStringLiteral("processor 0")) : group }));

        CPaintedRow row = GroupRow();
        row.SetState(bSelected ? QStyle::State_Selected : QStyle::State_None);
        const QImage image = row.Paint();

        QCOMPARE(image.pixelColor(38, 57), IconColour(strIcon));
        QCOMPARE(image, Expected(row, QStringLiteral("Stage(1)"), strIcon, bSelected ? QColor(Qt::white) : colourText));
    }

    void chiefOfAGroupIsNotLookedUp()
    {
        store.SetChiefMode(true);
        store.Show(Root({ Group(strStage).Chief(QStringLiteral("nobody")) }));
        CPaintedRow row = GroupRow();
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("Stage"), strChiefIcon));
    }

    void iconHasNoHoverForm()
    {
        store.Show(Root({ Group(strStage) }));
        CPaintedRow row = GroupRow();
        row.SetState(QStyle::State_MouseOver);
        QCOMPARE(row.Paint().pixelColor(38, 57), IconColour(strNormalIcon));
    }

    void textColourByState_data()
    {
        QTest::addColumn<int>("nState");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("at rest") << 0 << colourText;
        QTest::newRow("hovered") << int(QStyle::State_MouseOver) << QColor(227, 229, 232);
        QTest::newRow("selected") << int(QStyle::State_Selected) << QColor(Qt::white);
        QTest::newRow("selected and hovered") << int(QStyle::State_Selected | QStyle::State_MouseOver) << QColor(Qt::white);
    }

    void textColourByState()
    {
        QFETCH(int, nState);
        QFETCH(QColor, colour);
        store.Show(Root({ Group(strStage) }));
        const QString strIcon = nState & QStyle::State_Selected ? strSelectedIcon : strNormalIcon;
        for (CPaintedRow* pRow : { new CPaintedRow(int(NodeGroup), GroupId(strStage)), new CPaintedRow(int(NodeAll), QUuid()) }) {
            const QScopedPointer<CPaintedRow> row(pRow);
            const bool bRoot = row->Index().data(Qt::UserRole + 2).toInt() == NodeAll;
            row->SetState(QStyle::State(nState));
            const QString strText = bRoot ? QStringLiteral("All processors(0)") : strStage;
            QCOMPARE(row->Paint(), Expected(*row, strText, strIcon, colour));
        }
    }

    void selectedRowHasTheBackgroundOfTheStyle()
    {
        CPaintedRow row = RootRow();
        row.SetState(QStyle::State_Selected);
        QVERIFY(row.Paint().pixelColor(200, 42) != row.Blank().pixelColor(200, 42));
    }

    void unknownGroupLeavesTheRowUnpainted_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::newRow("in no tree") << GroupId(QStringLiteral("gone"));
        QTest::newRow("of a processor") << ProcessorId(QStringLiteral("processor 0"));
    }

    void unknownGroupLeavesTheRowUnpainted()
    {
        QFETCH(QUuid, id);
        store.Show(Root({ Group(strStage, Processors(1)) }));
        CPaintedRow row(int(NodeGroup), id);
        row.SetState(QStyle::State_Selected);
        QCOMPARE(row.Paint(), row.Blank());
        QVERIFY(!row.ToolTip().isValid());
    }

    void missingIconIsDrawnAsNothing()
    {
        store.Show(Root({ Group(strStage) }));
        CPaintedRow row = GroupRow();
        ExpectWarning(QStringLiteral("Cannot open file .*group_normal.svg"));
        Q_CLEANUP_RESOURCE(testicons);
        const QImage image = row.Paint();
        Q_INIT_RESOURCE(testicons);
        QCOMPARE(image, CReferenceRow(row).Text(strStage, rcText, colourText).Image());
    }

    void groupRowWithoutAnIdShowsADefaultGroup()
    {
        CPaintedRow row{ int(NodeGroup), QUuid() };
        QCOMPARE(row.Paint(), Expected(row, QStringLiteral("Group 1")));
    }

    void idGivenAsTextIsUnderstood()
    {
        store.Show(Root({ Group(strStage) }));
        CPaintedRow row(int(NodeGroup), GroupId(strStage).toString());
        QCOMPARE(row.Paint(), Expected(row, strStage));
    }

    void longNameIsShortenedInItsMiddle()
    {
        store.Show(Root({ Group(strLongName, Processors(3)) }));
        CPaintedRow row = GroupRow(strLongName);
        const QString strText = strLongName + QStringLiteral("(3)");
        const QString strElided = QFontMetrics(RowFont()).elidedText(strText, Qt::ElideMiddle, 211);
        QVERIFY(strElided.endsWith(QStringLiteral("row(3)")));
        QCOMPARE(row.Paint(), Expected(row, strElided));
    }

    void toolTipHoldsNameAndCount()
    {
        store.Show(Root({ Group(strLongName, Processors(3)) }));
        CPaintedRow row = GroupRow(strLongName);
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName + QStringLiteral("(3)")));
    }

    void shortNameLeavesNoToolTip()
    {
        store.Show(Root({ Group(strStage, Processors(3)) }));
        CPaintedRow row = GroupRow();
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());
    }

    void formerToolTipStaysWhenTheNameFitsAgain()
    {
        store.Show(Root({ Group(strLongName) }));
        CPaintedRow row = GroupRow(strLongName);
        row.Paint();
        store.Show(Root({ Group(strStage).Id(strLongName) }));
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName));
    }

    void rootTextIsShortenedToo()
    {
        CPaintedRow row = RootRow();
        row.SetWidth(29 + 60);
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(QStringLiteral("All processors(0)")));
    }

    void noHitAreasArePublished()
    {
        store.Show(Root({ Group(strStage) }));
        CPaintedRow rowGroup = GroupRow();
        CPaintedRow rowRoot = RootRow();
        rowGroup.Paint();
        rowRoot.Paint();
        QVERIFY(!rowGroup.Index().data(Qt::UserRole + 4).isValid());
        QVERIFY(!rowRoot.Index().data(Qt::UserRole + 4).isValid());
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CGroupRowTest)
#include "tst_grouprow.moc"
