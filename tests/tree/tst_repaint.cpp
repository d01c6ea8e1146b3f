#include "CEventCounter.h"
#include "TestMain.h"
#include "fixtures/CTreeFixture.h"
#include "model/EnItemRole.h"
#include "model/SPrcNodeItem.h"

#include <QProxyStyle>
#include <QTimer>

namespace {

/// One processor with a mark, in a group, and so many others.
SProcessorAllNode Site(int nOthers, int nFailover = 1)
{
    QList<SProcessorNode> listOther;
    for (int i = 0; i < nOthers; ++i) {
        listOther.append(Processor(QStringLiteral("other %1").arg(i)).Expanded(false));
    }
    return Root({ Group("Stage", { Processor("alpha").Failover(nFailover).Project("Show").Expanded(false) }) }, listOther);
}

/// Counts how often a view asks it for its options: each time it wants the size of their icon.
class CAskedStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        nAsked += metric == PM_SmallIconSize ? 1 : 0;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
    int TakeAsked()
    {
        return std::exchange(nAsked, 0);
    }

private:
    mutable int nAsked = 0;
};

/// Runs the event loop until it has nothing to do, timers of no delay among it.
void Settle()
{
    for (int nRound = 0; nRound < 4; ++nRound) {
        bool bDone = false;
        QTimer::singleShot(0, qApp, [&bDone] { bDone = true; });
        QTRY_VERIFY(bDone);
    }
}

bool IsShownAsPrimary(const CTreeFixture& fixture)
{
    return fixture.Row("alpha").data(RoleNodeItem).value<SPrcNodeItem>().bPrimary;
}

} // namespace

class CRepaintTest : public QObject
{
    Q_OBJECT

private slots:
    void aRebuildIsLaidOutAndPaintedOnce()
    {
        CTreeFixture fixture(Site(3));
        Settle();
        CEventCounter paints(fixture.pTree->viewport(), QEvent::Paint);
        fixture.pTree->nLayouts = 0;

        fixture.pTree->RefreshTree();
        Settle();

        QVERIFY(IsShownAsPrimary(fixture));
        QCOMPARE(fixture.pTree->nLayouts, 1);
        QCOMPARE(paints.nCount, 1);
    }

    void whatPaintingLeavesInARowAsksForNoFurtherPaint()
    {
        CTreeFixture fixture(Site(3));
        Settle();
        QVERIFY(IsShownAsPrimary(fixture));
        fixture.Change([](SControlAnswers& answers) { answers.nodeDiscovered = Site(3, 2); });
        CEventCounter paints(fixture.pTree->viewport(), QEvent::Paint);

        fixture.pTree->viewport()->update();
        Settle();

        QVERIFY(!IsShownAsPrimary(fixture));
        QCOMPARE(paints.nCount, 1);
    }

    void whatIsWrittenIntoARowBesidesIsPainted()
    {
        CTreeFixture fixture(Site(3));
        Settle();
        CEventCounter paints(fixture.pTree->viewport(), QEvent::Paint);

        QVERIFY(fixture.pTree->model()->setData(fixture.Row("alpha"), QStringLiteral("a tip"), Qt::ToolTipRole));
        Settle();

        QCOMPARE(paints.nCount, 1);
    }

    void aViewThatIsWiderReachesItsNewEdge()
    {
        CTreeFixture fixture(Site(3));
        fixture.pTree->RefreshTree();
        Settle();
        fixture.pTree->resize(fixture.pTree->width() + 100, fixture.pTree->height());
        Settle();
        QCOMPARE(fixture.pTree->visualRect(fixture.Root()).right(), fixture.pTree->viewport()->width() - 1);
    }

    void theStyleIsAskedOnceForALayoutAndAPaintHoweverManyRows_data()
    {
        QTest::addColumn<int>("nOthers");
        QTest::newRow("few") << 3;
        QTest::newRow("many") << 50;
    }
    void theStyleIsAskedOnceForALayoutAndAPaintHoweverManyRows()
    {
        QFETCH(int, nOthers);
        CAskedStyle style;
        CTreeFixture fixture(Site(nOthers));
        fixture.pTree->setStyle(&style);
        fixture.pTree->resize(400, 2000);
        Settle();
        style.TakeAsked();

        fixture.pTree->doItemsLayout();
        QCOMPARE(style.TakeAsked(), 1);
        fixture.pTree->viewport()->repaint();
        QCOMPARE(style.TakeAsked(), 1);
    }

    void whatTheStyleSaysBetweenTwoPaintsIsFollowed()
    {
        CTreeFixture fixture(Site(3));
        const QModelIndex index = fixture.Row("alpha");
        QMouseEvent event(QEvent::MouseMove, fixture.At(index), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(fixture.pTree->viewport(), &event);
        const QPoint posBare(200, fixture.pTree->visualRect(index).bottom() - 2);
        const QColor colorHovered = fixture.Grab().pixelColor(posBare);
        QCOMPARE(colorHovered, QColor("#42464D"));

        fixture.pTree->setStyleSheet(
            fixture.pTree->styleSheet().replace("show-decoration-selected: 1", "show-decoration-selected: 0"));

        QVERIFY(fixture.Grab().pixelColor(posBare) != colorHovered);
    }
};

PTV_TEST_MAIN(CRepaintTest)
#include "tst_repaint.moc"
