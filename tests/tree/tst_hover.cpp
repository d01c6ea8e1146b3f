#include "TestMain.h"
#include "fixtures/CTreeFixture.h"
#include "interfaces/widgets/CToolTip.h"
#include "model/EnItemRole.h"
#include "model/SPrcNodeItem.h"

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QLabel>
#include <QScrollBar>

namespace {

const QColor colorBackground("#1C1E21");
const QColor colorHovered("#42464D");
const char* const szPrimary = "Processor redundancy enabled. This processor has been set as Primary.";
const char* const szChief = "Chief-Member mode enabled. This processor has been set as Chief.";
constexpr int nTipDelayMs = 40; // until a tip that is up follows the mouse
const char* const szLongName = "a name that is far too long for a tree of three hundred pixels, whatever the font may be";

SProcessorAllNode Site()
{
    return Root({ Group(szLongName) },
                { Processor("pair").Online().Primary().Chief().Project("Opera").Expanded(false),
                  Processor("plain").Online().Expanded(false), Processor("open").Expanded(true) });
}

SProcessorAllNode ManyProcessors()
{
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < 60; ++i) {
        listProcessor.append(Processor(QStringLiteral("p%1").arg(i)).Expanded(false));
    }
    return Root({}, listProcessor);
}

QString Tip()
{
    for (const QWidget* pWidget : QApplication::allWidgets()) {
        const auto* const pLabel = qobject_cast<const QLabel*>(pWidget);
        if (pLabel && pLabel->objectName() == "ToolTip" && pLabel->isVisible()) {
            return pLabel->text();
        }
    }
    return QString();
}

/// The mouse goes there, as far as the cursor's position tells; no event is sent.
void PutCursor(const CTreeFixture& fixture, const QPoint& pos)
{
    QCursor::setPos(fixture.pTree->viewport()->mapToGlobal(pos));
}

/// The mouse goes there and moves, through the window.
void MoveMouse(const CTreeFixture& fixture, const QPoint& pos)
{
    PutCursor(fixture, pos);
    QTest::mouseMove(fixture.pTree->windowHandle(), fixture.pTree->viewport()->mapTo(fixture.pTree.data(), pos));
    QCoreApplication::processEvents();
}

/// The toolkit asks for a tip at the mouse.
void AskForTip(const CTreeFixture& fixture, const QPoint& pos)
{
    PutCursor(fixture, pos);
    QHelpEvent event(QEvent::ToolTip, pos, QCursor::pos());
    QApplication::sendEvent(fixture.pTree->viewport(), &event);
}

QPoint MarkOf(const CTreeFixture& fixture, const QString& strName, QRectF SPrcNodeItem::* prcMark)
{
    fixture.Grab(); // painting publishes where the marks are
    return (fixture.Row(strName).data(RoleNodeItem).value<SPrcNodeItem>().*prcMark).center().toPoint();
}

QColor ColorOf(const CTreeFixture& fixture, const QModelIndex& index)
{
    const QRect rc = fixture.pTree->visualRect(index);
    return fixture.Grab().pixelColor(250, rc.bottom() - 2);
}

void ShowChiefs(CTreeFixture& fixture)
{
    fixture.control.Set([](SControlAnswers& answers) { answers.bChiefMode = true; });
    fixture.ReadStore();
}

} // namespace

class CHoverTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        CToolTip::HideText();
    }

    void theRowUnderTheMouseLightsUpAndGoesOutAsTheMouseMovesOn()
    {
        CTreeFixture fixture(Site());
        MoveMouse(fixture, fixture.At(fixture.Row("plain")));
        QCOMPARE(ColorOf(fixture, fixture.Row("plain")), colorHovered);
        MoveMouse(fixture, fixture.At(fixture.Row("open")));
        QCOMPARE(ColorOf(fixture, fixture.Row("plain")), colorBackground);
        QCOMPARE(ColorOf(fixture, fixture.Row("open")), colorHovered);
    }

    void onAnInformationRowOrBelowAllRowsNothingIsLit()
    {
        CTreeFixture fixture(Site());
        MoveMouse(fixture, fixture.At(fixture.Row("open")));
        MoveMouse(fixture, fixture.At(fixture.Info("open")));
        QCOMPARE(ColorOf(fixture, fixture.Row("open")), colorBackground);
        MoveMouse(fixture, fixture.At(fixture.Row("plain")));
        MoveMouse(fixture, QPoint(100, fixture.pTree->viewport()->height() - 3));
        QCOMPARE(ColorOf(fixture, fixture.Row("plain")), colorBackground);
    }

    void aScrollUnderARestingMouseLightsTheRowThatComesUnderIt()
    {
        CTreeFixture fixture(ManyProcessors());
        MoveMouse(fixture, fixture.At(fixture.Row("p4")));
        QCOMPARE(ColorOf(fixture, fixture.Row("p4")), colorHovered);
        fixture.pTree->verticalScrollBar()->setValue(64);
        QCOMPARE(ColorOf(fixture, fixture.Row("p6")), colorHovered);
        QCOMPARE(ColorOf(fixture, fixture.Row("p4")), colorBackground);
    }

    void theWheelScrollsAndMovesTheLight()
    {
        CTreeFixture fixture(ManyProcessors());
        const QPoint pos = fixture.At(fixture.Row("p4"));
        MoveMouse(fixture, pos);
        QWheelEvent event(pos, fixture.pTree->viewport()->mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(fixture.pTree->viewport(), &event);
        QVERIFY(fixture.pTree->verticalScrollBar()->value() > 0);
        QVERIFY(event.isAccepted());
    }

    void aTipShowsAtOnceWhenTheToolkitAsks()
    {
        CTreeFixture fixture(Site());
        AskForTip(fixture, MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover));
        QCOMPARE(Tip(), QString::fromLatin1(szPrimary));
    }

    void eachMarkHasItsSentence()
    {
        CTreeFixture fixture(Site());
        ShowChiefs(fixture);
        AskForTip(fixture, MarkOf(fixture, "pair", &SPrcNodeItem::rcChief));
        QCOMPARE(Tip(), QString::fromLatin1(szChief));
        AskForTip(fixture, MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover));
        QCOMPARE(Tip(), QString::fromLatin1(szPrimary));
    }

    void aShortenedNameHasItsFullTextAsTip()
    {
        CTreeFixture fixture(Site());
        fixture.Grab();
        AskForTip(fixture, fixture.At(fixture.pTree->model()->index(0, 0, fixture.Root())));
        QCOMPARE(Tip(), QString::fromLatin1(szLongName));
    }

    void aPlaceWithoutATextHidesTheTip_data()
    {
        QTest::addColumn<QString>("strPlace");
        QTest::newRow("a name that fits") << "plain";
        QTest::newRow("below all rows") << "";
    }
    void aPlaceWithoutATextHidesTheTip()
    {
        QFETCH(QString, strPlace);
        CTreeFixture fixture(Site());
        AskForTip(fixture, MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover));
        QVERIFY(CToolTip::IsVisible());
        AskForTip(fixture,
                  strPlace.isEmpty() ? QPoint(100, fixture.pTree->viewport()->height() - 3) : fixture.At(fixture.Row(strPlace)));
        QVERIFY(!CToolTip::IsVisible());
    }

    void aTipThatIsUpFollowsTheMouseAfterADelay()
    {
        CTreeFixture fixture(Site());
        ShowChiefs(fixture);
        const QPoint ptChief = MarkOf(fixture, "pair", &SPrcNodeItem::rcChief);
        const QPoint ptFailover = MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover);
        QElapsedTimer time;
        QString strAtOnce;
        do { // once more where the machine was away for as long as the delay
            MoveMouse(fixture, ptFailover);
            AskForTip(fixture, ptFailover);
            time.start();
            MoveMouse(fixture, ptChief);
            strAtOnce = Tip();
        } while (strAtOnce != szPrimary && time.hasExpired(nTipDelayMs));
        QCOMPARE(strAtOnce, QString::fromLatin1(szPrimary)); // not yet
        QTRY_COMPARE(Tip(), QString::fromLatin1(szChief));
    }

    void aTipThatIsUpGoesAtOnceWhereThereIsNothingToSay()
    {
        CTreeFixture fixture(Site());
        const QPoint ptFailover = MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover);
        MoveMouse(fixture, ptFailover);
        AskForTip(fixture, ptFailover);
        MoveMouse(fixture, fixture.At(fixture.Row("plain")));
        QVERIFY(!CToolTip::IsVisible());
    }

    void movingTheMouseBringsNoTipWhileNoneIsUp()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover);
        PutCursor(fixture, pos);
        // Only the hover: a real move also makes the toolkit ask, a little later.
        QHoverEvent hover(QEvent::HoverMove, pos, pos - QPoint(1, 0));
        QApplication::sendEvent(fixture.pTree.data(), &hover);
        QVERIFY(!QTest::qWaitFor([] { return CToolTip::IsVisible(); }, 200));
    }

    void aRestingMouseBringsTheTip()
    {
        CTreeFixture fixture(Site());
        const QPoint ptFailover = MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover);
        MoveMouse(fixture, fixture.At(fixture.Row("plain")));
        MoveMouse(fixture, ptFailover);
        QTRY_COMPARE(Tip(), QString::fromLatin1(szPrimary));
    }

    void anOfflinePrimaryWithAProjectKeepsItsTip()
    {
        CTreeFixture fixture(Root({}, { Processor("pair").Online(false).Primary().Project("Opera").Expanded(false) }));
        AskForTip(fixture, MarkOf(fixture, "pair", &SPrcNodeItem::rcFailover));
        QCOMPARE(Tip(), QString::fromLatin1(szPrimary));
    }

    void aProcessorThatWasNeverPaintedHasNoTip()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->model()->setData(fixture.Row("pair"), QVariant(), RoleNodeItem);
        fixture.pTree->model()->setData(fixture.Row("pair"), QVariant(), RoleToolTip);
        AskForTip(fixture, fixture.At(fixture.Row("pair")));
        QVERIFY(!CToolTip::IsVisible());
    }
};

PTV_TEST_MAIN(CHoverTest)
#include "tst_hover.moc"
