#include "Builders.h"
#include "TestMain.h"
#include "delegate/EditorGeometry.h"
#include "delegate/SGroupRowGeometry.h"
#include "delegate/SInfoRowGeometry.h"
#include "delegate/SProcessorRowGeometry.h"
#include "nodes/EnNodeType.h"

namespace {

// Edges 30, 40, 269 and 71, all inclusive: 240 by 32.
const QRect rcRow(30, 40, 240, 32);

SProcessorNode Node(int nFailover, const QString& strProject)
{
    return Processor(QStringLiteral("alpha")).Failover(nFailover).Project(strProject);
}

} // namespace

class CRowGeometryTest : public QObject
{
    Q_OBJECT

private slots:
    void dotIsCentredToHalfAPixel_data()
    {
        QTest::addColumn<int>("nHeight");
        QTest::addColumn<qreal>("fTop");
        QTest::newRow("usual row") << 32 << 52.5;
        QTest::newRow("odd row") << 33 << 53.0;
        QTest::newRow("as high as the dot") << 7 << 40.0;
        QTest::newRow("lower than the dot") << 4 << 38.5;
    }

    void dotIsCentredToHalfAPixel()
    {
        QFETCH(int, nHeight);
        QFETCH(qreal, fTop);
        const SProcessorRowGeometry geometry(QRect(30, 40, 240, nHeight), Node(0, {}), false);
        QCOMPARE(geometry.rcDot, QRectF(31, fTop, 7, 7));
    }

    void glowSurroundsTheDot()
    {
        const SProcessorRowGeometry geometry(rcRow, Node(0, {}), false);
        QCOMPARE(geometry.rcGlow, QRectF(27, 48.5, 15, 15));
        QCOMPARE(geometry.rcDot.center(), QPointF(34.5, 56));
        QCOMPARE(geometry.rcGlow.center(), geometry.rcDot.center());
    }

    void processorRowByRoleProjectAndChief_data()
    {
        QTest::addColumn<int>("nFailover");
        QTest::addColumn<QString>("strProject");
        QTest::addColumn<bool>("bChief");
        QTest::addColumn<QRectF>("rcFailover");
        QTest::addColumn<QRectF>("rcChief");
        QTest::addColumn<qreal>("fNameWidth");
        const QString strShow = QStringLiteral("Show");
        const QRectF rcNone(269, 49, 0, 14);
        const QRectF rcMark(247, 49, 14, 14);
        const QRectF rcNext(229, 49, 14, 14);
        QTest::newRow("plain") << 0 << QString() << false << rcNone << QRectF() << 216.0;
        QTest::newRow("plain with a project") << 0 << strShow << false << rcNone << QRectF() << 216.0;
        QTest::newRow("plain Chief") << 0 << strShow << true << rcNone << rcMark << 202.0;
        QTest::newRow("Primary") << 1 << strShow << false << rcMark << QRectF() << 202.0;
        QTest::newRow("Backup") << 2 << strShow << false << rcMark << QRectF() << 202.0;
        QTest::newRow("unknown role") << 7 << strShow << false << rcMark << QRectF() << 202.0;
        QTest::newRow("Primary without a project") << 1 << QString() << false << rcNone << QRectF() << 216.0;
        QTest::newRow("Primary and Chief") << 1 << strShow << true << rcMark << rcNext << 188.0;
        QTest::newRow("Primary and Chief without a project") << 1 << QString() << true << rcNone << rcNext << 202.0;
    }

    void processorRowByRoleProjectAndChief()
    {
        QFETCH(int, nFailover);
        QFETCH(QString, strProject);
        QFETCH(bool, bChief);
        const SProcessorRowGeometry geometry(rcRow, Node(nFailover, strProject), bChief);
        QTEST(geometry.rcFailover, "rcFailover");
        QTEST(geometry.rcChief, "rcChief");
        QTEST(geometry.rcName.width(), "fNameWidth");
        QCOMPARE(geometry.rcName.topLeft(), QPointF(42, 48));
        QCOMPARE(geometry.rcName.height(), 16.0);
    }

    void marksAreCentredInRowsOfAnyHeight_data()
    {
        QTest::addColumn<int>("nHeight");
        QTest::addColumn<qreal>("fMarkTop");
        QTest::addColumn<qreal>("fNameTop");
        QTest::newRow("odd height") << 33 << 49.0 << 48.0;
        QTest::newRow("even height") << 34 << 50.0 << 49.0;
        QTest::newRow("lower than mark and name, rounded towards zero") << 11 << 39.0 << 38.0;
    }

    void marksAreCentredInRowsOfAnyHeight()
    {
        QFETCH(int, nHeight);
        const SProcessorRowGeometry geometry(QRect(30, 40, 240, nHeight), Node(1, QStringLiteral("Show")), true);
        QTEST(geometry.rcFailover.y(), "fMarkTop");
        QTEST(geometry.rcChief.y(), "fMarkTop");
        QTEST(geometry.rcName.y(), "fNameTop");
    }

    void onlineStateMovesNothing()
    {
        SProcessorNode node = Node(1, QStringLiteral("Show"));
        const SProcessorRowGeometry offline(rcRow, node, false);
        node.bOnline = true;
        const SProcessorRowGeometry online(rcRow, node, false);
        QCOMPARE(offline.rcFailover, online.rcFailover);
        QCOMPARE(offline.rcName, online.rcName);
    }

    void narrowRowGivesTheNameANegativeWidth()
    {
        const SProcessorRowGeometry geometry(QRect(0, 0, 30, 32), Node(1, QStringLiteral("Show")), true);
        QCOMPARE(geometry.rcName.width(), -22.0);
    }

    void groupRowHasIconAndText()
    {
        const SGroupRowGeometry geometry(rcRow);
        QCOMPARE(geometry.rcIcon, QRectF(30, 48, 16, 16));
        QCOMPARE(geometry.rcText, QRectF(49, 48, 211, 16));
    }

    void groupTextIsCentredInRowsOfAnyHeight_data()
    {
        QTest::addColumn<int>("nHeight");
        QTest::addColumn<qreal>("fTop");
        QTest::newRow("odd height") << 33 << 48.0;
        QTest::newRow("even height") << 34 << 49.0;
        QTest::newRow("lower than the text, rounded towards zero") << 13 << 39.0;
    }

    void groupTextIsCentredInRowsOfAnyHeight()
    {
        QFETCH(int, nHeight);
        const SGroupRowGeometry geometry(QRect(30, 40, 240, nHeight));
        QTEST(geometry.rcIcon.y(), "fTop");
        QTEST(geometry.rcText.y(), "fTop");
    }

    void infoRowHasFourLinesTwentyTwoPixelsApart()
    {
        const SInfoRowGeometry geometry(QRect(30, 40, 240, 92));
        QCOMPARE(geometry.arrLine[0], QRectF(30, 45, 225, 15));
        QCOMPARE(geometry.arrLine[1], QRectF(30, 67, 225, 15));
        QCOMPARE(geometry.arrLine[2], QRectF(30, 89, 225, 15));
        QCOMPARE(geometry.arrLine[3], QRectF(30, 111, 225, 15));
        QCOMPARE(geometry.nProjectWidth, 180);
        QCOMPARE(geometry.nIdWidth, 193);
    }

    void editorCoversTheName_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QRect>("rcEditor");
        QTest::newRow("group") << int(NodeGroup) << QRect(48, 44, 215, 24);
        QTest::newRow("processor") << int(NodeProcessor) << QRect(39, 44, 225, 24);
        QTest::newRow("root") << int(NodeAll) << QRect();
        QTest::newRow("information") << int(NodeInfo) << QRect();
        QTest::newRow("no kind") << 0 << QRect();
    }

    void editorCoversTheName()
    {
        QFETCH(int, nType);
        QTEST(EditorGeometry::EditorRect(nType, rcRow), "rcEditor");
    }

    void editorIsCentredInRowsOfAnyHeight_data()
    {
        QTest::addColumn<int>("nHeight");
        QTest::addColumn<int>("nTop");
        QTest::newRow("odd height") << 33 << 44;
        QTest::newRow("even height") << 34 << 45;
        QTest::newRow("lower than the editor, rounded towards zero") << 21 << 39;
    }

    void editorIsCentredInRowsOfAnyHeight()
    {
        QFETCH(int, nHeight);
        const QRect rcEditor = EditorGeometry::EditorRect(NodeGroup, QRect(30, 40, 240, nHeight));
        QTEST(rcEditor.top(), "nTop");
        QCOMPARE(rcEditor.height(), 24);
    }
};

PTV_TEST_MAIN_CORE(CRowGeometryTest)
#include "tst_rowgeometry.moc"
