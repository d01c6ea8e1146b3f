#include "CPaintedRow.h"
#include "CReferenceRow.h"
#include "TestMain.h"
#include "delegate/CProcessorTreeDelegate.h"
#include "fixtures/CStoreFixture.h"
#include "nodes/EnNodeType.h"

namespace {

const QString strLongName = QStringLiteral("A name that is far too long for the room on its row, all of it");

CProcessorBuilder Alpha()
{
    return Processor(QStringLiteral("alpha"));
}

CPaintedRow Row(const QString& strName = QStringLiteral("alpha"))
{
    return { int(NodeProcessor), ProcessorId(strName) };
}

} // namespace

class CProcessorNameTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.SetChiefMode(false);
        store.Show(Root({}));
    }

    void fullNameTakesAllTheRoom()
    {
        store.Show(Root({}, { Alpha() }));
        CPaintedRow row = Row();
        CReferenceRow reference(row);
        reference.Icon(QStringLiteral(":/image/treeView/online/offline.svg"), QRectF(31, 52.5, 7, 7));
        reference.Text(QStringLiteral("alpha"), QRectF(42, 48, 216, 16), QColor(186, 190, 196));
        QCOMPARE(row.Paint(), reference.Image());
    }

    void nameIsNeverBrokenIntoASecondLine()
    {
        store.Show(Root({}, { Alpha() }));
        const QImage image = Row().Paint();
        for (int y = 64; y < 72; ++y) {
            for (int x = 42; x < 270; ++x) {
                QCOMPARE(image.pixelColor(x, y), QColor(0x1C, 0x1E, 0x21));
            }
        }
    }

    void longNameIsShortenedInItsMiddle()
    {
        const CProcessorTreeDelegate delegate(nullptr);
        const QString strElided = delegate.GetElidedText(strLongName, 150, RowFont(), QModelIndex());
        const int nDots = strElided.indexOf(QChar(0x2026));
        QVERIFY(nDots > 5 && nDots < strElided.size() - 6);
        QVERIFY(strLongName.startsWith(strElided.left(nDots)));
        QVERIFY(strLongName.endsWith(strElided.mid(nDots + 1)));
        QVERIFY(QFontMetrics(RowFont()).horizontalAdvance(strElided) <= 150);
    }

    void ampersandIsPartOfTheName()
    {
        const QString strName = QStringLiteral("Light && R&D");
        const CProcessorTreeDelegate delegate(nullptr);
        QCOMPARE(delegate.GetElidedText(strName, 300, RowFont(), QModelIndex()), strName);
        const QString strSigns(20, QLatin1Char('&'));
        const int nAdvance = QFontMetrics(RowFont()).horizontalAdvance(strSigns);
        QVERIFY(delegate.GetElidedText(strSigns, nAdvance - 3, RowFont(), QModelIndex()) != strSigns);
    }

    void longNameIsPublishedForTheToolTip()
    {
        store.Show(Root({}, { Processor(strLongName).Online() }));
        CPaintedRow row = Row(strLongName);
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName));
    }

    void shortNameLeavesNoToolTip()
    {
        store.Show(Root({}, { Alpha().Online() }));
        CPaintedRow row = Row();
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());
    }

    void formerToolTipStaysWhenTheNameFitsAgain()
    {
        store.Show(Root({}, { Processor(strLongName) }));
        CPaintedRow row = Row(strLongName);
        row.Paint();

        store.Show(Root({}, { Processor(QStringLiteral("short")).Id(strLongName) }));
        row.Paint();

        QCOMPARE(row.ToolTip(), QVariant(strLongName));
    }

    void nameFitsUpToTheLastPixelOfItsRoom()
    {
        store.Show(Root({}, { Processor(strLongName) }));
        const int nAdvance = QFontMetrics(RowFont()).horizontalAdvance(strLongName);
        CPaintedRow row = Row(strLongName);

        row.SetWidth(nAdvance + 24 + 1);
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());

        row.SetWidth(nAdvance + 24 - 2);
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName));
    }

    void offlineProcessorWithARoleHasLessRoomForItsName()
    {
        const int nAdvance = QFontMetrics(RowFont()).horizontalAdvance(strLongName);
        CPaintedRow row = Row(strLongName);
        row.SetWidth(nAdvance + 24 + 13);

        store.Show(Root({}, { Processor(strLongName).Project(QStringLiteral("Show")) }));
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());

        store.Show(Root({}, { Processor(strLongName).Project(QStringLiteral("Show")).Primary() }));
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName));
    }

    void chiefModeOffTakesMarkAndGivesRoom()
    {
        store.Show(Root({}, { Processor(strLongName).Online().Chief() }));
        CPaintedRow row = Row(strLongName);
        row.SetWidth(QFontMetrics(RowFont()).horizontalAdvance(strLongName) + 24 + 13);

        store.SetChiefMode(false);
        row.Paint();
        QVERIFY(!row.ToolTip().isValid());
        QVERIFY(!row.Marks().bChief);

        store.SetChiefMode(true);
        row.Paint();
        QCOMPARE(row.ToolTip(), QVariant(strLongName));
        QVERIFY(row.Marks().bChief);
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CProcessorNameTest)
#include "tst_processorname.moc"
