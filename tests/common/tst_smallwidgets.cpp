#include "TestMain.h"
#include "interfaces/widgets/CDoubleSpinBox.h"
#include "interfaces/widgets/CIconButton.h"
#include "interfaces/widgets/CScrollBar.h"
#include "interfaces/widgets/CSeperator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTreeWidget>

namespace {

void FillTree(QTreeWidget& tree, int nRows)
{
    for (int i = 0; i < nRows; ++i) {
        tree.addTopLevelItem(new QTreeWidgetItem({ QString::number(i) }));
    }
}

void SendWheel(QWidget* pWidget, int nDelta)
{
    const QPointF pt = pWidget->rect().center();
    QWheelEvent event(pt, pWidget->mapToGlobal(pt.toPoint()), QPoint(), QPoint(0, nDelta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(pWidget, &event);
}

} // namespace

/// Scroll bar, separator, icon button and spin box.
class CSmallWidgetsTest : public QObject
{
    Q_OBJECT

private slots:
    void scrollBarIsFivePixelsThickFromTheStart_data()
    {
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::newRow("horizontal") << Qt::Horizontal;
        QTest::newRow("vertical") << Qt::Vertical;
    }

    void scrollBarIsFivePixelsThickFromTheStart()
    {
        QFETCH(Qt::Orientation, orientation);
        QWidget parent;
        CScrollBar bar(orientation, &parent);
        const bool bHorizontal = orientation == Qt::Horizontal;
        QCOMPARE(bHorizontal ? bar.height() : bar.width(), 5);
        QCOMPARE(bHorizontal ? bar.sizeHint().height() : bar.sizeHint().width(), 5);
        bar.setGeometry(0, 0, 50, 60);
        QCOMPARE(bar.size(), bHorizontal ? QSize(50, 5) : QSize(5, 60));
    }

    void tiedBarTakesOverAllOfTheSystemBar()
    {
        QScrollBar system(Qt::Vertical);
        system.setRange(5, 90);
        system.setPageStep(30);
        system.setSingleStep(7);
        system.setValue(42);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(&system);
        QCOMPARE(bar.minimum(), 5);
        QCOMPARE(bar.maximum(), 90);
        QCOMPARE(bar.pageStep(), 30);
        QCOMPARE(bar.singleStep(), 7);
        QCOMPARE(bar.value(), 42);
        QCOMPARE(system.value(), 42);
    }

    void systemBarMovesTheTiedBar()
    {
        QScrollBar system(Qt::Vertical);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(&system);
        QSignalSpy spy(&bar, &QScrollBar::valueChanged);
        system.setValue(33);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { 33 } });
    }

    void tiedBarMovesTheSystemBar()
    {
        QScrollBar system(Qt::Vertical);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(&system);
        QSignalSpy spy(&system, &QScrollBar::valueChanged);
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { 10 } });
    }

    void rangesAreTiedBothWays()
    {
        QScrollBar system(Qt::Horizontal);
        CScrollBar bar(Qt::Horizontal, nullptr);
        bar.ConnectSystem(&system);
        system.setRange(-10, 500);
        QCOMPARE(bar.minimum(), -10);
        QCOMPARE(bar.maximum(), 500);
        bar.setRange(0, 77);
        QCOMPARE(system.minimum(), 0);
        QCOMPARE(system.maximum(), 77);
    }

    void shrinkingRangeLeavesBothAtTheSameValue()
    {
        QScrollBar system(Qt::Vertical);
        system.setRange(0, 200);
        system.setValue(150);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(&system);
        system.setRange(0, 60);
        QCOMPARE(system.value(), 60);
        QCOMPARE(bar.value(), 60);
    }

    void stepsAreTiedBothWays()
    {
        QScrollBar system(Qt::Vertical);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(&system);
        bar.setPageStep(25);
        bar.setSingleStep(5);
        QCOMPARE(system.pageStep(), 25);
        QCOMPARE(system.singleStep(), 5);
        system.setPageStep(50);
        system.setSingleStep(6);
        system.setValue(1);
        QCOMPARE(bar.pageStep(), 50);
        QCOMPARE(bar.singleStep(), 6);
        QCOMPARE(system.pageStep(), 50);
    }

    void stepsOfAViewArriveWhenItPaints()
    {
        QTreeWidget tree;
        FillTree(tree, 100);
        CScrollBar bar(Qt::Vertical, &tree);
        bar.ConnectSystem(tree.verticalScrollBar());
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        tree.verticalScrollBar()->setPageStep(23);
        tree.verticalScrollBar()->setSingleStep(4);
        tree.viewport()->update();
        QTRY_COMPARE(bar.pageStep(), 23);
        QCOMPARE(bar.singleStep(), 4);
    }

    void draggingTheTiedBarScrollsTheView()
    {
        QTreeWidget tree;
        tree.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        FillTree(tree, 100);
        CScrollBar bar(Qt::Vertical, &tree);
        bar.ConnectSystem(tree.verticalScrollBar());
        tree.resize(200, 300);
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        bar.setGeometry(194, 1, 5, 299);
        bar.show();
        bar.setSliderDown(true);
        bar.setSliderPosition(bar.maximum() / 2);
        bar.setSliderDown(false);
        QCOMPARE(tree.verticalScrollBar()->value(), bar.maximum() / 2);
        QVERIFY(!tree.visualItemRect(tree.topLevelItem(0)).intersects(tree.viewport()->rect()));
    }

    void wheelOverTheTiedBarScrollsTheView()
    {
        QTreeWidget tree;
        FillTree(tree, 100);
        CScrollBar bar(Qt::Vertical, &tree);
        bar.ConnectSystem(tree.verticalScrollBar());
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        SendWheel(&bar, -120);
        QVERIFY(tree.verticalScrollBar()->value() > 0);
        QCOMPARE(bar.value(), tree.verticalScrollBar()->value());
    }

    void barShowsItselfOnlyWhereThereIsSomethingToScroll()
    {
        QTreeWidget tree;
        tree.resize(200, 300);
        CScrollBar bar(Qt::Vertical, &tree);
        bar.ConnectSystem(tree.verticalScrollBar());
        bar.hide();
        bar.setGeometry(194, 1, 5, 299);
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        QVERIFY(!bar.isVisible());
        FillTree(tree, 100);
        QTRY_VERIFY(bar.isVisible());
        tree.clear();
        QTRY_VERIFY(!bar.isVisible());
    }

    void barThatItsViewPutAwayStaysAway()
    {
        QWidget view;
        view.resize(9, 9);
        QScrollBar system(Qt::Vertical, &view);
        CScrollBar bar(Qt::Vertical, &view);
        bar.ConnectSystem(&system);
        bar.setGeometry(194, 1, 5, 299);
        bar.hide();
        view.show();
        system.setRange(0, 1000);
        QVERIFY(!bar.isVisible());
        QCOMPARE(bar.maximum(), 1000);
    }

    void barStaysAwayFromATinyView_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("bShown");
        QTest::newRow("too narrow") << QSize(9, 300) << false;
        QTest::newRow("too low") << QSize(300, 9) << false;
        QTest::newRow("smallest") << QSize(10, 10) << true;
    }

    void barStaysAwayFromATinyView()
    {
        QFETCH(QSize, size);
        QFETCH(bool, bShown);
        QWidget window;
        QWidget view(&window); // a window itself may refuse to be so small
        view.resize(size);
        QScrollBar system(Qt::Vertical, &view);
        CScrollBar bar(Qt::Vertical, &view);
        bar.ConnectSystem(&system);
        bar.setGeometry(0, 1, 5, 8);
        bar.hide();
        window.show();
        system.setRange(0, 1000);
        QCOMPARE(bar.isVisible(), bShown);
    }

    void barOutlivesItsSystemBar()
    {
        auto pSystem = std::make_unique<QScrollBar>(Qt::Vertical);
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.ConnectSystem(pSystem.get());
        pSystem.reset();
        bar.setPageStep(3);
        bar.setValue(5);
        SendWheel(&bar, -120);
        QVERIFY(bar.value() > 5);
    }

    void separatorHasThePrescribedShape_data()
    {
        QTest::addColumn<QFrame::Shape>("shape");
        QTest::addColumn<CSeperator::EnSeparatorStyle>("style");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("strProperty");
        QTest::newRow("line across") << QFrame::HLine << CSeperator::StyleLine << QSize(100, 1) << "line";
        QTest::newRow("line down") << QFrame::VLine << CSeperator::StyleLine << QSize(1, 100) << "line";
        QTest::newRow("gap across") << QFrame::HLine << CSeperator::StyleGap << QSize(100, 8) << "gap";
        QTest::newRow("gap down") << QFrame::VLine << CSeperator::StyleGap << QSize(8, 100) << "gap";
    }

    void separatorHasThePrescribedShape()
    {
        QFETCH(QFrame::Shape, shape);
        QFETCH(CSeperator::EnSeparatorStyle, style);
        QFETCH(QSize, size);
        QFETCH(QString, strProperty);
        QWidget parent;
        CSeperator separator(&parent, shape, style);
        separator.resize(100, 100);
        QCOMPARE(separator.size(), size);
        QCOMPARE(separator.property("SeparatorStyle").toString(), strProperty);
        QCOMPARE(separator.frameShape(), style == CSeperator::StyleLine ? shape : QFrame::NoFrame);
        separator.setStyleSheet(QStringLiteral("CSeperator[SeparatorStyle=\"line\"]{background:#3A3E44;border:none}"));
        const bool bLine = separator.grab().toImage().pixelColor(0, 0) == QColor(0x3A3E44);
        QCOMPARE(bLine, style == CSeperator::StyleLine);
    }

    void iconHasItsFormsByModeAndState()
    {
        QTemporaryDir folder;
        const auto fnPicture = [&folder](const QString& strName, Qt::GlobalColor colour) {
            QPixmap pixmap(28, 28);
            pixmap.fill(colour);
            pixmap.save(folder.filePath(strName));
            return folder.filePath(strName);
        };
        CIconButton button(nullptr);
        button.AddIcon(fnPicture(QStringLiteral("n.png"), Qt::red), QIcon::Normal, QIcon::Off);
        button.AddIcon(fnPicture(QStringLiteral("d.png"), Qt::blue), QIcon::Disabled, QIcon::Off);
        button.setIconSize(28, 28);
        button.setFixedSize(28, 28);
        QCOMPARE(button.grab().toImage().pixelColor(14, 14), QColor(Qt::red));
        button.setEnabled(false);
        QCOMPARE(button.grab().toImage().pixelColor(14, 14), QColor(Qt::blue));
    }

    void emptyPathAddsNoForm()
    {
        CIconButton button(nullptr);
        button.AddIcon(QString(), QIcon::Normal, QIcon::Off);
        QVERIFY(button.icon().isNull());
    }

    void iconSizeTakesBothEdges()
    {
        CIconButton button(nullptr);
        button.setIconSize(28, 20);
        QCOMPARE(button.iconSize(), QSize(28, 20));
        button.setIconSize(QSize(16, 16));
        QCOMPARE(button.iconSize(), QSize(16, 16));
    }

    void accessibleNameFollowsTheToolTip()
    {
        CIconButton button(nullptr);
        button.setToolTip(QStringLiteral("Add a processor"));
        QCOMPARE(button.accessibleName(), QStringLiteral("Add a processor"));
        button.setToolTip(QStringLiteral("Add simulators"));
        QCOMPARE(button.accessibleName(), QStringLiteral("Add simulators"));
    }

    void accessibleNameOfTheCallerStays()
    {
        CIconButton button(nullptr);
        button.setAccessibleName(QStringLiteral("Mine"));
        button.setToolTip(QStringLiteral("Other"));
        QCOMPARE(button.accessibleName(), QStringLiteral("Mine"));
    }

    void iconButtonTakesSpaceAndMouse()
    {
        CIconButton button(nullptr);
        QSignalSpy spy(&button, &CIconButton::clicked);
        QTest::keyClick(&button, Qt::Key_Space);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(spy.size(), 2);
        QVERIFY(button.focusPolicy() & Qt::TabFocus);
    }

    void spinBoxStaysInItsRange_data()
    {
        QTest::addColumn<QString>("strKeys");
        QTest::addColumn<int>("nUps");
        QTest::addColumn<double>("dValue");
        QTest::newRow("typed") << "2" << 0 << 2.0;
        QTest::newRow("typed over the range") << "9" << 0 << 1.0;
        QTest::newRow("stepped up") << "" << 1 << 2.0;
        QTest::newRow("stepped over the range") << "" << 5 << 2.0;
    }

    void spinBoxStaysInItsRange()
    {
        QFETCH(QString, strKeys);
        QFETCH(int, nUps);
        QFETCH(double, dValue);
        CDoubleSpinBox box(nullptr);
        box.setDecimals(0);
        box.setRange(1.0, 2.0);
        box.selectAll();
        QTest::keyClicks(&box, strKeys);
        for (int i = 0; i < nUps; ++i) {
            QTest::keyClick(&box, Qt::Key_Up);
        }
        QCOMPARE(box.value(), dValue);
    }

    void wheelOverAnUnfocusedSpinBoxChangesNothing()
    {
        CDoubleSpinBox box(nullptr);
        box.setValue(5);
        QVERIFY(!box.hasFocus());
        QVERIFY(!(box.focusPolicy() & Qt::WheelFocus & ~Qt::StrongFocus));
        SendWheel(&box, 120);
        QCOMPARE(box.value(), 5.0);
    }
};

PTV_TEST_MAIN(CSmallWidgetsTest)
#include "tst_smallwidgets.moc"
