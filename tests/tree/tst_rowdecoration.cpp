#include "TestMain.h"
#include "fixtures/CTreeFixture.h"
#include "tree/CRowPainter.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>

namespace {

const QColor colorBackground("#1C1E21");
const QColor colorSelected("#5F646D");
const QColor colorHovered("#42464D");
const QColor colorDrop("#ED811D");
const QColor colorHoveredCard("#26282C");
const QColor colorSelectedCard("#2F3237");

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(true), Processor("beta").Expanded(false) }) },
                { Processor("loose").Expanded(false) });
}

void Hover(const CTreeFixture& fixture, const QModelIndex& index)
{
    QMouseEvent event(QEvent::MouseMove, fixture.At(index), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(fixture.pTree->viewport(), &event);
}

/// A place of the row where neither text nor icons are.
QPoint Bare(const CTreeFixture& fixture, const QModelIndex& index)
{
    const QRect rc = fixture.pTree->visualRect(index);
    return QPoint(200, rc.bottom() - 2);
}

QColor ColorAt(const QImage& image, const QPoint& pos)
{
    return image.pixelColor(pos);
}

/// A row of 300 pixels, painted ten times as large so that every edge has pixels of its full colour.
QImage PaintLarge(EnRowMark mark)
{
    QImage image(3000, 320, QImage::Format_ARGB32);
    image.fill(colorBackground);
    QPainter painter(&image);
    painter.scale(10, 10);
    painter.setBrush(Qt::red); // of whoever painted before
    CRowPainter(painter).PaintNode(QRect(0, 0, 300, 32), mark);
    return image;
}

} // namespace

class CRowDecorationTest : public QObject
{
    Q_OBJECT

private slots:
    void eachSelectedRowIsFilledOverItsFullWidthButSixPixels_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("root") << "all";
        QTest::newRow("group") << "Stage";
        QTest::newRow("processor") << "beta";
    }
    void eachSelectedRowIsFilledOverItsFullWidthButSixPixels()
    {
        QFETCH(QString, strName);
        CTreeFixture fixture(Site());
        fixture.Select({ strName });
        const QModelIndex index = strName == "all" ? fixture.Root() : fixture.Row(strName);
        const QRect rc = fixture.pTree->visualRect(index);
        const QImage image = fixture.Grab();
        const int nRight = image.width() - 7; // the last pixel of the shape
        const int nMiddle = rc.center().y();
        QCOMPARE(ColorAt(image, QPoint(0, nMiddle)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(nRight, nMiddle)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(nRight + 1, nMiddle)), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(200, rc.top())), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(200, rc.top() + 1)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(200, rc.bottom())), colorSelected);
    }

    void theShapeOfARowHasRoundCorners()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "beta" });
        const QRect rc = fixture.pTree->visualRect(fixture.Row("beta"));
        const QImage image = fixture.Grab();
        QCOMPARE(ColorAt(image, QPoint(0, rc.top() + 1)), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(0, rc.bottom())), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(5, rc.top() + 1)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(0, rc.top() + 6)), colorSelected);
    }

    void aRowThatIsNeitherSelectedNorHoveredHasNoShape()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "beta" });
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Row("loose"))), colorBackground);
    }

    void theRowUnderTheMouseIsHovered_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("root") << "all";
        QTest::newRow("group") << "Stage";
        QTest::newRow("processor") << "loose";
    }
    void theRowUnderTheMouseIsHovered()
    {
        QFETCH(QString, strName);
        CTreeFixture fixture(Site(), { ProcessorId("beta") });
        const QModelIndex index = strName == "all" ? fixture.Root() : fixture.Row(strName);
        Hover(fixture, index);
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, index)), colorHovered);
    }

    void onlyOneRowIsHovered()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        Hover(fixture, fixture.Row("loose"));
        Hover(fixture, fixture.Row("beta"));
        const QImage image = fixture.Grab();
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Row("beta"))), colorHovered);
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Row("loose"))), colorBackground);
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Row("alpha"))), colorBackground);
    }

    void aSelectedRowGetsNoHoverShape()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "beta" });
        Hover(fixture, fixture.Row("beta"));
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Row("beta"))), colorSelected);
    }

    void withoutDecorationOfWholeRowsNothingIsHovered()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->setStyleSheet("#ProcessorTree { background: #1C1E21; border: none; show-decoration-selected: 0; }");
        Hover(fixture, fixture.Row("loose"));
        QVERIFY(ColorAt(fixture.Grab(), QPoint(1, fixture.At(fixture.Row("loose")).y())) != colorHovered);
    }

    void anInformationRowDropsTheHover()
    {
        CTreeFixture fixture(Site());
        Hover(fixture, fixture.Row("alpha"));
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Info("alpha"))), colorHoveredCard);
        Hover(fixture, fixture.Info("alpha"));
        const QImage image = fixture.Grab();
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Row("alpha"))), colorBackground);
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Info("alpha"))), colorBackground);
    }

    void onlyTheCardOfTheHoveredProcessorIsHovered()
    {
        CTreeFixture fixture(Root({}, { Processor("alpha").Expanded(true), Processor("beta").Expanded(true) }));
        Hover(fixture, fixture.Row("alpha"));
        const QImage image = fixture.Grab();
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Info("alpha"))), colorHoveredCard);
        QCOMPARE(ColorAt(image, Bare(fixture, fixture.Info("beta"))), colorBackground);
    }

    void theCardOfAProcessorHasTheColourOfItsState_data()
    {
        QTest::addColumn<bool>("bSelected");
        QTest::addColumn<bool>("bHovered");
        QTest::addColumn<QColor>("color");
        QTest::newRow("neither") << false << false << colorBackground;
        QTest::newRow("hovered") << false << true << colorHoveredCard;
        QTest::newRow("selected") << true << false << colorSelectedCard;
        QTest::newRow("both: selected") << true << true << colorSelectedCard;
    }
    void theCardOfAProcessorHasTheColourOfItsState()
    {
        QFETCH(bool, bSelected);
        QFETCH(bool, bHovered);
        QFETCH(QColor, color);
        CTreeFixture fixture(Site(), { bSelected ? ProcessorId("alpha") : ProcessorId("gone") });
        if (bHovered) {
            Hover(fixture, fixture.Row("alpha"));
        }
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Info("alpha"))), color);
    }

    void theCardReachesUpIntoItsRowAndFlaresOutThere()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha") });
        const QRect rc = fixture.pTree->visualRect(fixture.Info("alpha"));
        const QImage image = fixture.Grab();
        const int nRight = image.width() - 7;
        QCOMPARE(ColorAt(image, QPoint(0, rc.top() - 1)), colorSelectedCard);
        QCOMPARE(ColorAt(image, QPoint(nRight, rc.top() - 1)), colorSelectedCard);
        QCOMPARE(ColorAt(image, QPoint(100, rc.top() - 1)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(100, rc.top())), colorSelectedCard);
        QCOMPARE(ColorAt(image, QPoint(0, rc.top() - 6)), colorSelected);
        QCOMPARE(ColorAt(image, QPoint(nRight + 1, rc.center().y())), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(0, rc.bottom())), colorBackground);
        QCOMPARE(ColorAt(image, QPoint(6, rc.bottom())), colorSelectedCard);
    }

    void theMouseLeavingTheTreeEndsTheHover()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        Hover(fixture, fixture.Row("loose"));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(fixture.pTree.data(), &leave);
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Row("loose"))), colorBackground);
    }

    void aHoveredRowThatIsRebuiltIsNotHoveredUntilTheMouseMoves()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        Hover(fixture, fixture.Row("loose"));
        fixture.pTree->RefreshTree();
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Row("loose"))), colorBackground);
        Hover(fixture, fixture.Row("loose"));
        QCOMPARE(ColorAt(fixture.Grab(), Bare(fixture, fixture.Row("loose"))), colorHovered);
    }

    void whereADropWouldGoIsMarkedInItsColour_data()
    {
        QTest::addColumn<int>("nMark");
        QTest::newRow("beside a processor") << int(EnRowMark::DropLine);
        QTest::newRow("into a group") << int(EnRowMark::DropFrame);
    }
    void whereADropWouldGoIsMarkedInItsColour()
    {
        QFETCH(int, nMark);
        const QImage image = PaintLarge(EnRowMark(nMark));
        QCOMPARE(image.pixelColor(1500, 10), colorDrop);
        QCOMPARE(image.pixelColor(1500, 160), colorBackground);
    }
};

PTV_TEST_MAIN(CRowDecorationTest)
#include "tst_rowdecoration.moc"
