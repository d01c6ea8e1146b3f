#include "Builders.h"
#include "CBracketTranslator.h"
#include "CNameRegistry.h"
#include "CPaintedRow.h"
#include "CReferenceRow.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "nodes/EnNodeType.h"

namespace {

const QColor colourText(186, 190, 196);
const QUuid idAlpha(QStringLiteral("{01234567-89ab-cdef-0123-456789abcdef}"));
const QString strAlphaId = QStringLiteral("01234567-89ab-cdef-0123-456789abcdef");
const QString strLongProject = QStringLiteral("A project with a name that is far too long for the row");

CProcessorBuilder Alpha()
{
    return Processor(QStringLiteral("alpha")).NodeId(idAlpha).Ip(QStringLiteral("10.0.0.7")).Type(3, QStringLiteral("KX-4"));
}

QRectF Line(int nLine, int nWidth = 225)
{
    return QRectF(30, 45 + 22 * nLine, nWidth, 15);
}

QImage Expected(const CPaintedRow& row, const QStringList& listLine, int nWidth = 225)
{
    CReferenceRow reference(row);
    for (int i = 0; i < listLine.size(); ++i) {
        reference.Text(listLine.at(i), Line(i, nWidth), colourText);
    }
    return reference.Image();
}

QString Shortened(const QString& strText, int nWidth)
{
    return QFontMetrics(RowFont()).elidedText(strText, Qt::ElideMiddle, nWidth);
}

} // namespace

class CInfoRowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.Show(Root({}));
    }

    void onlineProcessorShowsFourLines()
    {
        store.Show(Root({}, { Alpha().Online().Project(QStringLiteral("Show")) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        const QString strId = Shortened(strAlphaId, 193);
        QCOMPARE(row.Paint(), Expected(row, { "Type: KX-4", "IP: 10.0.0.7", "Project: Show", "UID: " + strId }));
    }

    void onlineProcessorWithoutAProjectShowsDashes()
    {
        store.Show(Root({}, { Alpha().Online() }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        const QString strId = Shortened(strAlphaId, 193);
        QCOMPARE(row.Paint(), Expected(row, { "Type: KX-4", "IP: 10.0.0.7", "Project: --", "UID: " + strId }));
        QCOMPARE(row.ToolTip().toString(), "Type: KX-4\nIP: 10.0.0.7\nProject: --\nUID: " + strAlphaId);
    }

    void offlineProcessorShowsItsAddressOnly()
    {
        store.Show(Root({}, { Alpha().Project(QStringLiteral("Show")) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        QCOMPARE(row.Paint(), Expected(row, { "Type: --", "IP: 10.0.0.7", "Project: --", "UID: --" }));
    }

    void addressIsInHostOrder_data()
    {
        QTest::addColumn<quint32>("nIP");
        QTest::addColumn<QString>("strIP");
        QTest::newRow("loopback") << 0x7F000001U << "127.0.0.1";
        QTest::newRow("unspecified") << 0U << "0.0.0.0";
        QTest::newRow("highest") << 0xFFFFFFFFU << "255.255.255.255";
    }

    void addressIsInHostOrder()
    {
        QFETCH(quint32, nIP);
        QFETCH(QString, strIP);
        store.Show(Root({}, { Alpha().Ip(nIP) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        QCOMPARE(row.Paint(), Expected(row, { "Type: --", "IP: " + strIP, "Project: --", "UID: --" }));
    }

    void textIsGreyInEveryState_data()
    {
        QTest::addColumn<int>("nState");
        QTest::newRow("at rest") << 0;
        QTest::newRow("hovered") << int(QStyle::State_MouseOver);
        QTest::newRow("selected") << int(QStyle::State_Selected);
    }

    // No background either: that of a selected row would show.
    void textIsGreyInEveryState()
    {
        QFETCH(int, nState);
        store.Show(Root({ Group(QStringLiteral("Stage"), { Alpha() }) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        row.SetState(QStyle::State(nState));
        QCOMPARE(row.Paint(), Expected(row, { "Type: --", "IP: 10.0.0.7", "Project: --", "UID: --" }));
    }

    void textsAreTranslatedDashesAreNot()
    {
        const CBracketTranslator translator;
        CPaintedRow row{ int(NodeInfo), idAlpha };
        store.Show(Root({}, { Alpha() }));
        QCOMPARE(row.Paint(), Expected(row, { "<Type: -->", "<IP: 10.0.0.7>", "<Project: -->", "<UID: -->" }));
        store.Show(Root({}, { Alpha().Online() }));
        row.Paint();
        QCOMPARE(row.ToolTip().toString(), "<Type: >KX-4\n<IP: 10.0.0.7>\n<Project: >--\n<UID: >" + strAlphaId);
    }

    void longTypeIsClippedNotShortened()
    {
        const QString strType(200, QLatin1Char('M'));
        store.Show(Root({}, { Alpha().Type(3, strType).Online() }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        const QImage image = row.Paint();
        const QString strId = Shortened(strAlphaId, 193);
        QCOMPARE(image, Expected(row, { "Type: " + strType, "IP: 10.0.0.7", "Project: --", "UID: " + strId }));
        for (int x = 256; x < image.width(); ++x) {
            QCOMPARE(image.copy(x, 0, 1, 160), row.Blank().copy(x, 0, 1, 160));
        }
    }

    void longProjectIsShortenedBehindItsLabel()
    {
        store.Show(Root({}, { Alpha().Online().Project(strLongProject) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        const QString strProject = Shortened(strLongProject, 180);
        QVERIFY(strProject != strLongProject);
        const QString strId = Shortened(strAlphaId, 193);
        QCOMPARE(row.Paint(), Expected(row, { "Type: KX-4", "IP: 10.0.0.7", "Project: " + strProject, "UID: " + strId }));
    }

    void narrowRowShortensTheIdBehindItsLabel()
    {
        store.Show(Root({}, { Alpha().Online().Project(QStringLiteral("Show")) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        row.SetWidth(160); // lines of 145, of which the id has 113
        const QString strId = Shortened(strAlphaId, 113);
        QVERIFY(strId.startsWith(QStringLiteral("0123")) && strId.endsWith(QStringLiteral("cdef")));
        QCOMPARE(row.Paint(), Expected(row, { "Type: KX-4", "IP: 10.0.0.7", "Project: Show", "UID: " + strId }, 145));
    }

    void narrowRowKeepsTheWholeToolTip()
    {
        store.Show(Root({}, { Alpha().Online().Project(strLongProject) }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        row.SetWidth(80);
        row.Paint();
        QCOMPARE(row.ToolTip().toString(), "Type: KX-4\nIP: 10.0.0.7\nProject: " + strLongProject + "\nUID: " + strAlphaId);
    }

    void toolTipFollowsEachPaint()
    {
        CPaintedRow row{ int(NodeInfo), idAlpha };
        store.Show(Root({}, { Alpha().Online() }));
        row.Paint();
        store.Show(Root({}, { Alpha().Online().Project(QStringLiteral("Show")) }));
        row.Paint();
        QCOMPARE(row.ToolTip().toString(), "Type: KX-4\nIP: 10.0.0.7\nProject: Show\nUID: " + strAlphaId);
    }

    void offlineRowKeepsTheLastOnlineToolTip()
    {
        CPaintedRow row{ int(NodeInfo), idAlpha };
        store.Show(Root({}, { Alpha().Online().Project(QStringLiteral("Show")) }));
        row.Paint();
        store.Show(Root({}, { Alpha() }));
        row.Paint();
        QCOMPARE(row.ToolTip().toString(), "Type: KX-4\nIP: 10.0.0.7\nProject: Show\nUID: " + strAlphaId);
    }

    void offlineRowWritesNoToolTip()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());
    }

    void unknownProcessorLeavesTheRowUnpainted()
    {
        CPaintedRow row{ int(NodeInfo), idAlpha };
        QCOMPARE(row.Paint(), row.Blank());
        QVERIFY(!row.ToolTip().isValid());
    }

    void rowWithoutAnIdShowsADefaultProcessor()
    {
        CPaintedRow row{ int(NodeInfo), QUuid() };
        QCOMPARE(row.Paint(), Expected(row, { "Type: --", "IP: 127.0.0.1", "Project: --", "UID: --" }));
    }

    void idGivenAsTextIsUnderstood()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row{ int(NodeInfo), idAlpha.toString() };
        QCOMPARE(row.Paint(), Expected(row, { "Type: --", "IP: 10.0.0.7", "Project: --", "UID: --" }));
    }

    void noHitAreasArePublished()
    {
        store.Show(Root({}, { Alpha().Online().Chief() }));
        CPaintedRow row{ int(NodeInfo), idAlpha };
        row.Paint();
        QVERIFY(!row.Index().data(Qt::UserRole + 4).isValid());
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CInfoRowTest)
#include "tst_inforow.moc"
