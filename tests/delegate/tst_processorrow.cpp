#include "Builders.h"
#include "CNameRegistry.h"
#include "CPaintedRow.h"
#include "CReferenceRow.h"
#include "IconColour.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "nodes/EnNodeType.h"

namespace {

const QString strOnlineIcon = QStringLiteral(":/image/treeView/online/online.svg");
const QString strOfflineIcon = QStringLiteral(":/image/treeView/online/offline.svg");
const QString strPrimaryIcon = QStringLiteral(":/image/treeView/failover/primary.svg");
const QString strBackupIcon = QStringLiteral(":/image/treeView/failover/backup.svg");
const QString strChiefIcon = QStringLiteral(":/image/treeView/chief/chief.svg");
const QString strLongName = QStringLiteral("A name that is far too long for the room on its row, all of it");
const QColor colourText(186, 190, 196);
const QRectF rcDot(31, 52.5, 7, 7);
const QRectF rcLast(247, 49, 14, 14);       // mark at the right end
const QRectF rcLastButOne(229, 49, 14, 14); // and the one before it
const QRectF rcNoSlot(269, 49, 0, 14);

CProcessorBuilder Alpha()
{
    return Processor(QStringLiteral("alpha"));
}

CPaintedRow Row(const QString& strName = QStringLiteral("alpha"))
{
    return { int(NodeProcessor), ProcessorId(strName) };
}

QRectF NameRect(qreal fWidth)
{
    return { 42, 48, fWidth, 16 };
}

} // namespace

Q_DECLARE_METATYPE(SProcessorNode)

class CProcessorRowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.SetChiefMode(false);
        store.Show(Root({}));
    }

    void rowByState_data()
    {
        QTest::addColumn<SProcessorNode>("node");
        QTest::addColumn<bool>("bChiefMode");
        QTest::addColumn<QString>("strFailoverIcon");
        QTest::addColumn<QRectF>("rcChief");
        QTest::addColumn<qreal>("fNameWidth");
        const QString strShow = QStringLiteral("Show");
        const auto alpha = [](int nFailover, const QString& strProject, int nChief) {
            return Alpha().Failover(nFailover).Project(strProject).Chief(nChief);
        };
        const auto online = [alpha](int nFailover, const QString& strProject, int nChief) -> SProcessorNode {
            return alpha(nFailover, strProject, nChief).Online();
        };
        const auto offline = [alpha](int nFailover, const QString& strProject, int nChief) -> SProcessorNode {
            return alpha(nFailover, strProject, nChief);
        };

        QTest::newRow("offline") << offline(0, {}, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("offline with a project") << offline(0, strShow, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("offline Primary") << offline(1, strShow, 0) << true << "" << QRectF() << 202.0;
        QTest::newRow("offline Backup") << offline(2, strShow, 0) << true << "" << QRectF() << 202.0;
        QTest::newRow("offline Primary without a project") << offline(1, {}, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("offline Chief") << offline(0, {}, 1) << true << "" << rcLast << 202.0;
        QTest::newRow("offline Chief and Primary") << offline(1, strShow, 1) << true << "" << rcLastButOne << 188.0;
        QTest::newRow("offline Chief, mode off") << offline(0, {}, 1) << false << "" << QRectF() << 216.0;
        QTest::newRow("online") << online(0, {}, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("online with a project") << online(0, strShow, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("Chief") << online(0, {}, 1) << true << "" << rcLast << 202.0;
        QTest::newRow("Chief with a project") << online(0, strShow, 1) << true << "" << rcLast << 202.0;
        QTest::newRow("Chief, mode off") << online(0, strShow, 1) << false << "" << QRectF() << 216.0;
        QTest::newRow("no Chief, but marked 2") << online(0, strShow, 2) << true << "" << QRectF() << 216.0;
        QTest::newRow("Primary without a project") << online(1, {}, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("Backup without a project") << online(2, {}, 0) << true << "" << QRectF() << 216.0;
        QTest::newRow("Primary") << online(1, strShow, 0) << true << strPrimaryIcon << QRectF() << 202.0;
        QTest::newRow("Backup") << online(2, strShow, 0) << true << strBackupIcon << QRectF() << 202.0;
        QTest::newRow("unknown role, shown as Backup") << online(5, strShow, 0) << true << strBackupIcon << QRectF() << 202.0;
        QTest::newRow("Chief and Primary") << online(1, strShow, 1) << true << strPrimaryIcon << rcLastButOne << 188.0;
        QTest::newRow("Chief and Backup") << online(2, strShow, 1) << true << strBackupIcon << rcLastButOne << 188.0;
        QTest::newRow("Chief and Primary, no project") << online(1, {}, 1) << true << "" << rcLastButOne << 202.0;
    }

    void rowByState()
    {
        QFETCH(SProcessorNode, node);
        QFETCH(bool, bChiefMode);
        QFETCH(QString, strFailoverIcon);
        QFETCH(QRectF, rcChief);
        QFETCH(qreal, fNameWidth);
        node.strName = strLongName; // its shortened form shows the width of the room
        store.Show(Root({}, { node }));
        store.SetChiefMode(bChiefMode);

        CPaintedRow row = Row();
        CReferenceRow reference(row);
        if (node.bOnline) {
            reference.Glow();
        }
        reference.Icon(node.bOnline ? strOnlineIcon : strOfflineIcon, rcDot);
        if (!strFailoverIcon.isEmpty()) {
            reference.Icon(strFailoverIcon, rcLast);
        }
        if (!rcChief.isNull()) {
            reference.Icon(strChiefIcon, rcChief);
        }
        const QString strElided = QFontMetrics(RowFont()).elidedText(strLongName, Qt::ElideMiddle, int(fNameWidth));
        reference.Text(strElided, NameRect(fNameWidth), colourText);

        QCOMPARE(row.Paint(), reference.Image());
    }

    void marksForToolTipsByState_data()
    {
        QTest::addColumn<SProcessorNode>("node");
        QTest::addColumn<bool>("bChiefMode");
        QTest::addColumn<QRectF>("rcFailover");
        QTest::addColumn<QRectF>("rcChief");
        const QString strShow = QStringLiteral("Show");
        const auto alpha = [](int nFailover, const QString& strProject, int nChief) -> SProcessorNode {
            return Alpha().Failover(nFailover).Project(strProject).Chief(nChief);
        };
        QTest::newRow("plain") << alpha(0, strShow, 0) << true << rcNoSlot << QRectF();
        QTest::newRow("Primary, also offline") << alpha(1, strShow, 0) << true << rcLast << QRectF();
        QTest::newRow("Backup without a project") << alpha(2, {}, 0) << true << rcNoSlot << QRectF();
        QTest::newRow("unknown role") << alpha(5, strShow, 0) << true << rcLast << QRectF();
        QTest::newRow("Chief alone") << alpha(0, strShow, 1) << true << rcNoSlot << rcLast;
        QTest::newRow("Chief and Primary, no project") << alpha(1, {}, 1) << true << rcNoSlot << rcLastButOne;
        QTest::newRow("Chief and Backup") << alpha(2, strShow, 1) << true << rcLast << rcLastButOne;
        QTest::newRow("Chief, mode off") << alpha(0, strShow, 1) << false << rcNoSlot << QRectF();
        QTest::newRow("no Chief, but marked 2") << alpha(0, strShow, 2) << true << rcNoSlot << QRectF();
    }

    void marksForToolTipsByState()
    {
        QFETCH(SProcessorNode, node);
        QFETCH(bool, bChiefMode);
        QFETCH(QRectF, rcChief);
        store.Show(Root({}, { node }));
        store.SetChiefMode(bChiefMode);

        CPaintedRow row = Row();
        row.Paint();

        QTEST(row.Marks().rcFailover, "rcFailover");
        QCOMPARE(row.Marks().rcChief, rcChief);
        QCOMPARE(row.Marks().bPrimary, node.nFailover == 1);
        QCOMPARE(row.Marks().bBackup, node.nFailover == 2);
        QCOMPARE(row.Marks().bChief, !rcChief.isNull());
    }

    void iconIsDrawnInItsOwnPlace()
    {
        store.Show(Root({}, { Alpha().Online().Primary().Project(QStringLiteral("Show")).Chief() }));
        store.SetChiefMode(true);

        const QImage image = Row().Paint();

        QCOMPARE(image.pixelColor(34, 57), IconColour(strOnlineIcon));
        QCOMPARE(image.pixelColor(254, 56), IconColour(strPrimaryIcon));
        QCOMPARE(image.pixelColor(236, 56), IconColour(strChiefIcon));
    }

    void textColourByState_data()
    {
        QTest::addColumn<int>("nState");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("at rest") << 0 << colourText;
        QTest::newRow("hovered") << int(QStyle::State_MouseOver) << QColor(227, 229, 232);
        QTest::newRow("selected") << int(QStyle::State_Selected) << QColor(Qt::white);
        QTest::newRow("selected and hovered") << int(QStyle::State_Selected | QStyle::State_MouseOver) << QColor(Qt::white);
        QTest::newRow("focused") << int(QStyle::State_HasFocus) << colourText;
        QTest::newRow("active") << int(QStyle::State_Active) << colourText;
    }

    void textColourByState()
    {
        QFETCH(int, nState);
        QFETCH(QColor, colour);
        store.Show(Root({}, { Alpha() }));

        CPaintedRow row = Row();
        row.SetState(QStyle::State(nState));

        CReferenceRow reference(row);
        reference.Background().Icon(strOfflineIcon, rcDot).Text(QStringLiteral("alpha"), NameRect(216), colour);
        QCOMPARE(row.Paint(), reference.Image());
    }

    void paletteAndDisabledStatePlayNoPart()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row = Row();
        const QImage usual = row.Paint();
        for (const QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::HighlightedText }) {
            row.Option().palette.setColor(role, Qt::red);
        }
        row.Option().state = QStyle::State_None;
        QCOMPARE(row.Paint(), usual);
    }

    void selectedRowHasTheBackgroundOfTheStyle()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row = Row();
        row.SetState(QStyle::State_Selected);
        const QImage image = row.Paint();
        QVERIFY(image.pixelColor(150, 42) != row.Blank().pixelColor(150, 42));
        QCOMPARE(image.pixelColor(150, 39), row.Blank().pixelColor(150, 39));
    }

    void unknownProcessorLeavesTheRowUnpainted_data()
    {
        QTest::addColumn<QVariant>("id");
        QTest::newRow("in no tree") << QVariant(ProcessorId(QStringLiteral("gone")));
        QTest::newRow("null") << QVariant(QUuid());
        QTest::newRow("none") << QVariant();
        QTest::newRow("of a group") << QVariant(GroupId(QStringLiteral("Stage")));
        QTest::newRow("no id at all") << QVariant(QStringLiteral("alpha"));
    }

    void unknownProcessorLeavesTheRowUnpainted()
    {
        QFETCH(QVariant, id);
        store.Show(Root({ Group(QStringLiteral("Stage")) }, { Alpha() }));

        CPaintedRow row(int(NodeProcessor), id);
        row.SetState(QStyle::State_Selected);

        QCOMPARE(row.Paint(), row.Blank());
        QVERIFY(!row.Index().data(Qt::UserRole + 4).isValid());
        QVERIFY(!row.ToolTip().isValid());
    }

    void idGivenAsTextIsUnderstood()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow rowText(int(NodeProcessor), ProcessorId(QStringLiteral("alpha")).toString());
        QCOMPARE(rowText.Paint(), Row().Paint());
        QVERIFY(rowText.Paint() != rowText.Blank());
    }

    void eachPaintShowsTheLatestState()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row = Row();
        const QImage offline = row.Paint();

        store.Show(Root({ Group(QStringLiteral("Stage"), { Alpha().Online() }) }));

        QVERIFY(row.Paint() != offline);
        QCOMPARE(row.Paint(), Row().Paint());
    }

    void narrowRowStillPaints()
    {
        store.Show(Root({}, { Alpha().Online().Primary().Project(QStringLiteral("Show")).Chief() }));
        store.SetChiefMode(true);
        for (const int nWidth : { 60, 30, 8, 1, 0 }) {
            CPaintedRow row = Row();
            row.SetWidth(nWidth);
            row.Paint();
            QCOMPARE(row.Marks().rcFailover.x(), qreal(30 + nWidth - 1 - 22));
            QCOMPARE(row.ToolTip(), QVariant(QStringLiteral("alpha")));
        }
    }

    // 36 wide: the Chief mark, left of its row, lies over the dot.
    void marksOverlapInTheirOrder()
    {
        store.Show(Root({}, { Alpha().Online().Primary().Project(QStringLiteral("Show")).Chief() }));
        store.SetChiefMode(true);
        CPaintedRow row = Row();
        row.SetWidth(36);
        CReferenceRow reference(row);
        reference.Glow().Icon(strOnlineIcon, rcDot);
        reference.Icon(strPrimaryIcon, QRectF(43, 49, 14, 14)).Icon(strChiefIcon, QRectF(25, 49, 14, 14));
        const QImage marks = reference.Image();
        QCOMPARE(row.Paint().copy(0, 0, 42, 160), marks.copy(0, 0, 42, 160));
        QCOMPARE(marks.pixelColor(33, 56), IconColour(strChiefIcon));
    }

    void missingIconIsDrawnAsNothing()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row = Row();
        CReferenceRow reference(row);
        reference.Text(QStringLiteral("alpha"), NameRect(216), colourText);
        ExpectWarning(QStringLiteral("Cannot open file .*offline.svg"));
        Q_CLEANUP_RESOURCE(testicons);
        const QImage image = row.Paint();
        Q_INIT_RESOURCE(testicons);
        QCOMPARE(image, reference.Image());
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CProcessorRowTest)
#include "tst_processorrow.moc"
