#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CTreeFixture.h"
#include "tree/SDragPayload.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTimer>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }).Expanded(false) },
                { Processor("loose").Expanded(false), Processor("open").Expanded(true) });
}

QMimeData* Payload(bool bAllow)
{
    SDragPayload payload;
    payload.bAllow = bAllow;
    return payload.ToMime();
}

// The events go to the tree itself: the application hands on only those of a drag that runs.

/// Drops what a drag carries onto a place of the tree; true when the tree has accepted.
bool Drop(const CTreeFixture& fixture, const QPoint& pos, const QMimeData* pData)
{
    QDropEvent event(pos, Qt::MoveAction, pData, Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(false);
    fixture.pTree->dropEvent(&event);
    return event.isAccepted();
}

bool Enter(const CTreeFixture& fixture, const QMimeData* pData)
{
    QDragEnterEvent event(QPoint(100, 40), Qt::MoveAction, pData, Qt::LeftButton, Qt::NoModifier);
    fixture.pTree->dragEnterEvent(&event);
    return event.isAccepted();
}

/// As after an enter that was refused.
bool Move(const CTreeFixture& fixture, const QMimeData* pData, const QPoint& pos = QPoint(100, 40))
{
    QDragMoveEvent event(pos, Qt::MoveAction, pData, Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(false);
    fixture.pTree->dragMoveEvent(&event);
    return event.isAccepted();
}

void SendMouse(const CTreeFixture& fixture, QEvent::Type type, const QPoint& pos, Qt::MouseButton button,
               Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QMouseEvent event(type, pos, fixture.pTree->viewport()->mapToGlobal(pos), button, buttons, modifiers);
    QApplication::sendEvent(fixture.pTree->viewport(), &event);
}

void PressLeft(const CTreeFixture& fixture, const QPoint& pos, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    SendMouse(fixture, QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton, modifiers);
}

/// Moves with the left button held; true when a drag came of it.
bool Sweep(const CTreeFixture& fixture, const QPoint& pos)
{
    const int nDrags = fixture.pTree->findChildren<QDrag*>().size();
    SendMouse(fixture, QEvent::MouseMove, pos, Qt::NoButton, Qt::LeftButton);
    return fixture.pTree->findChildren<QDrag*>().size() > nDrags;
}

/// Runs the event loop until a timer has fired that is started behind those of the tree and takes longer.
bool ALaterTimerHasFired()
{
    bool bFired = false;
    QTimer::singleShot(250, [&bFired] { bFired = true; });
    return QTest::qWaitFor([&bFired] { return bFired; }, nPatience);
}

/// Sweeps where a drag is to come of it; offscreen it ends at once.
bool SweepIntoDrag(const CTreeFixture& fixture, const QPoint& pos)
{
    return Sweep(fixture, pos);
}

} // namespace

class CDropTest : public QObject
{
    Q_OBJECT

private slots:
    void aDropGoesIntoTheGroupOrOutOfAll_data()
    {
        QTest::addColumn<QString>("strOnto");
        QTest::addColumn<QString>("strGroup");
        QTest::addColumn<QStringList>("listExpanded");
        const QString strNull = "{null}";
        const QStringList listHall{ "g_pPrcListControl.SetExpanded(Hall, true)" };
        QTest::newRow("folded group: it opens") << "Hall"
                                                << "Hall" << listHall;
        QTest::newRow("open group") << "Stage"
                                    << "Stage" << QStringList();
        QTest::newRow("member") << "beta"
                                << "Stage" << QStringList();
        QTest::newRow("processor in no group") << "loose" << strNull << QStringList();
        QTest::newRow("root") << "all" << strNull << QStringList();
    }
    void aDropGoesIntoTheGroupOrOutOfAll()
    {
        QFETCH(QString, strOnto);
        QFETCH(QString, strGroup);
        QFETCH(QStringList, listExpanded);
        CTreeFixture fixture(Site());
        fixture.Select({ "open", "alpha" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        QVERIFY(Drop(fixture, fixture.At(strOnto == "all" ? fixture.Root() : fixture.Row(strOnto)), pData.data()));
        const QStringList listMove{ MoveCall("open", strGroup), MoveCall("alpha", strGroup) };
        QCOMPARE(fixture.control.Commands(), listExpanded + listMove);
        QCOMPARE(fixture.Selected(), (QStringList{ "open", "alpha" }));
    }

    void theGroupOpensBeforeItsNewMembersAreSent()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        Drop(fixture, fixture.At(fixture.Row("Hall")), pData.data());
        QCOMPARE(fixture.control.CommandsWithThread(),
                 (QStringList{ "gui: g_pPrcListControl.SetExpanded(Hall, true)", "gui: " + MoveCall("loose", "Hall") }));
    }

    void aDropOnAnInformationRowOrBelowAllRowsMovesNothing_data()
    {
        QTest::addColumn<bool>("bInfo");
        QTest::newRow("information row") << true;
        QTest::newRow("below all rows") << false;
    }
    void aDropOnAnInformationRowOrBelowAllRowsMovesNothing()
    {
        QFETCH(bool, bInfo);
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        const QPoint ptBelow(100, fixture.pTree->viewport()->height() - 3);
        QVERIFY2(Drop(fixture, bInfo ? fixture.At(fixture.Info("open")) : ptBelow, pData.data()), "accepted all the same");
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void processorsThatAreThereAlreadyAreSentToo()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha", "beta" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        Drop(fixture, fixture.At(fixture.Row("Stage")), pData.data());
        QCOMPARE(fixture.control.Commands(), (QStringList{ MoveCall("alpha", "Stage"), MoveCall("beta", "Stage") }));
    }

    void aMoveThatTheLibraryRefusesLeavesTheRowsAsTheyWere()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        fixture.Select({ "loose" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        QVERIFY(Drop(fixture, fixture.At(fixture.Row("Stage")), pData.data()));
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("loose", "Stage") });
        const QString strRows = TreeText(fixture.pTree.data());
        fixture.ReadStore(); // the double keeps its trees: the move was not carried out
        fixture.pTree->RefreshTree();
        QCOMPARE(TreeText(fixture.pTree.data()), strRows);
        QCOMPARE(fixture.Row("loose").parent(), fixture.Root());
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
    }

    void rowsThatAreNoProcessorsArePassedOver()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Hall", "alpha", "all" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        Drop(fixture, fixture.At(fixture.Row("loose")), pData.data());
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("alpha", "{null}") });
    }

    void aRefusedForeignOrBrokenDropMovesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("bOurs");
        QTest::newRow("refused") << QByteArray(1, 0) << true;
        QTest::newRow("broken") << QByteArray(2, 1) << true;
        QTest::newRow("foreign") << QByteArray("text") << false;
    }
    void aRefusedForeignOrBrokenDropMovesNothing()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, bOurs);
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha" });
        QMimeData data;
        data.setData(bOurs ? "PROCESSOR DATA" : "text/plain", bytes);
        QVERIFY(!Enter(fixture, &data));
        QVERIFY(!Move(fixture, &data));
        QVERIFY(!Drop(fixture, fixture.At(fixture.Row("Hall")), &data));
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void onlyADragThatMayBeDroppedIsLetIn()
    {
        CTreeFixture fixture(Site());
        const QScopedPointer<QMimeData> pAllowed(Payload(true)), pRefused(Payload(false));
        QVERIFY(Enter(fixture, pAllowed.data()));
        QVERIFY(!Enter(fixture, pRefused.data()));
    }

    void aDragOfAnotherTreeMovesWhatIsSelectedHere()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const QScopedPointer<QMimeData> pData(Payload(true));
        QVERIFY(Enter(fixture, pData.data()));
        QVERIFY(Drop(fixture, fixture.At(fixture.Row("Stage")), pData.data()));
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("loose", "Stage") });
    }

    void movingADragIsAcceptedOnlyWithAPayloadThatMayBeDropped_data()
    {
        QTest::addColumn<bool>("bOurs");
        QTest::addColumn<bool>("bAllow");
        QTest::addColumn<bool>("bBefore");
        QTest::addColumn<bool>("bAfter");
        QTest::newRow("allowed") << true << true << false << true;
        QTest::newRow("foreign") << false << true << true << false;
        QTest::newRow("refused, was refused") << true << false << false << false;
        QTest::newRow("refused, was accepted: untouched") << true << false << true << true;
    }
    void movingADragIsAcceptedOnlyWithAPayloadThatMayBeDropped()
    {
        QFETCH(bool, bOurs);
        QFETCH(bool, bAllow);
        QFETCH(bool, bBefore);
        QFETCH(bool, bAfter);
        CTreeFixture fixture(Site());
        QScopedPointer<QMimeData> pData(bOurs ? Payload(bAllow) : new QMimeData);
        QDragMoveEvent move(QPoint(100, 40), Qt::CopyAction | Qt::MoveAction, pData.data(), Qt::LeftButton, Qt::NoModifier);
        move.setAccepted(bBefore);
        move.setDropAction(Qt::CopyAction);
        fixture.pTree->dragMoveEvent(&move);
        QCOMPARE(move.isAccepted(), bAfter);
        QCOMPARE(move.dropAction() == Qt::MoveAction, bOurs && bAllow);
    }

    void aDropSetsTheArrowCursorAndTheMoveAction()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->setCursor(Qt::WaitCursor);
        const QScopedPointer<QMimeData> pData(Payload(true));
        QDropEvent event(QPoint(100, 40), Qt::CopyAction | Qt::MoveAction, pData.data(), Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::CopyAction);
        fixture.pTree->dropEvent(&event);
        QCOMPARE(fixture.pTree->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(event.dropAction(), Qt::MoveAction);
    }

    void aPressOfSevenPixelsStartsADrag_data()
    {
        QTest::addColumn<QPoint>("ptMoved");
        QTest::addColumn<bool>("bDrag");
        QTest::newRow("6 and 6") << QPoint(6, 6) << false;
        QTest::newRow("-6 and -6") << QPoint(-6, -6) << false;
        QTest::newRow("7 right") << QPoint(7, 0) << true;
        QTest::newRow("7 left") << QPoint(-7, 0) << true;
        QTest::newRow("7 down") << QPoint(0, 7) << true;
        QTest::newRow("7 up") << QPoint(0, -7) << true;
    }
    void aPressOfSevenPixelsStartsADrag()
    {
        QFETCH(QPoint, ptMoved);
        QFETCH(bool, bDrag);
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        QCOMPARE(bDrag ? SweepIntoDrag(fixture, pos + ptMoved) : Sweep(fixture, pos + ptMoved), bDrag);
    }

    void aPressOnAHalfVisibleRowScrollsNothingUnderIt()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->resize(300, 100); // three rows and four pixels of a fourth
        const int nInterval = QApplication::doubleClickInterval();
        QApplication::setDoubleClickInterval(0); // the base class scrolls a tenth of a second after that
        const QPoint pos(100, fixture.pTree->viewport()->height() - 2);
        QVERIFY(!fixture.pTree->viewport()->rect().contains(fixture.pTree->visualRect(fixture.pTree->indexAt(pos))));
        PressLeft(fixture, pos);
        QVERIFY(ALaterTimerHasFired());
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 0);
        SendMouse(fixture, QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton);
        QApplication::setDoubleClickInterval(nInterval);
        QVERIFY(fixture.pTree->hasAutoScroll());
    }

    void aKeyStillScrollsToItsRow()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->resize(300, 100);
        fixture.Click(fixture.Row("Stage"));
        fixture.Press(Qt::Key_End);
        QVERIFY(fixture.pTree->verticalScrollBar()->value() > 0);
    }

    void aPressSelectsTheRowThatIsDragged()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        QVERIFY(SweepIntoDrag(fixture, pos + QPoint(9, 0)));
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("loose") });
    }

    void afterADragTheNextOneNeedsANewPress()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        QVERIFY(SweepIntoDrag(fixture, pos + QPoint(9, 0)));
        QVERIFY(!Sweep(fixture, pos + QPoint(30, 0)));
    }

    void aReleaseDisarms()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        SendMouse(fixture, QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton);
        QVERIFY(!Sweep(fixture, pos + QPoint(30, 0)));
    }

    void movingWithoutTheLeftButtonStartsNoDrag()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        SendMouse(fixture, QEvent::MouseMove, pos + QPoint(30, 0), Qt::NoButton, Qt::RightButton);
        QVERIFY(fixture.pTree->findChildren<QDrag*>().isEmpty());
    }

    void sweepingOverRowsSelectsNothing()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        PressLeft(fixture, QPoint(100, fixture.pTree->viewport()->height() - 3));
        Sweep(fixture, fixture.At(fixture.Row("alpha")));
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
    }

    void aPressBelowAllRowsKeepsSelectionAndCurrentRow()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        PressLeft(fixture, QPoint(100, fixture.pTree->viewport()->height() - 3));
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("loose"));
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aPressOnTheInformationRowOfASelectedProcessorDoesNothing()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "open" });
        SendMouse(fixture, QEvent::MouseButtonRelease, QPoint(1, 1), Qt::LeftButton, Qt::NoButton);
        const QPoint pos = fixture.At(fixture.Info("open"));
        PressLeft(fixture, pos);
        QVERIFY(!Sweep(fixture, pos + QPoint(30, 0)));
        QCOMPARE(fixture.Selected(), QStringList{ "open" });
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aPressInTheIndentationSelectsButArmsNothing()
    {
        CTreeFixture fixture(Site());
        const QRect rc = fixture.pTree->visualRect(fixture.Row("alpha"));
        const QPoint pos(2, rc.center().y());
        PressLeft(fixture, pos);
        QVERIFY(!Sweep(fixture, pos + QPoint(30, 0)));
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void aCtrlPressThatDeselectsKeepsTheTreeArmedAsItWas()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos); // armed, and not released
        PressLeft(fixture, pos, Qt::ControlModifier);
        QCOMPARE(fixture.Selected(), QStringList());
        QVERIFY2(!Sweep(fixture, pos + QPoint(30, 0)), "there is nothing to drag");
        fixture.pTree->selectionModel()->select(fixture.Row("alpha"), QItemSelectionModel::Select);
        QVERIFY2(SweepIntoDrag(fixture, pos + QPoint(30, 0)), "still armed");
    }

    void aRightPressSelectsAndArmsNothing()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        SendMouse(fixture, QEvent::MouseButtonPress, pos, Qt::RightButton, Qt::RightButton);
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QVERIFY(!Sweep(fixture, pos + QPoint(30, 0)));
    }

    void aReleaseBelowAllRowsIsAccepted()
    {
        CTreeFixture fixture(Site());
        const QPoint pos(100, fixture.pTree->viewport()->height() - 3);
        QMouseEvent event(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(fixture.pTree->viewport(), &event);
        QVERIFY(event.isAccepted());
    }

    void aTreeOfTwelvePixelsDragsWithoutAnImage_data()
    {
        QTest::addColumn<int>("nWidth");
        QTest::newRow("12") << 12;
        QTest::newRow("5") << 5;
    }
    void aTreeOfTwelvePixelsDragsWithoutAnImage()
    {
        QFETCH(int, nWidth);
        CTreeFixture fixture(Root({}, { Processor("loose").Expanded(false) }));
        fixture.Select({ "loose" });
        fixture.pTree->setIndentation(0);
        fixture.pTree->setMinimumWidth(1);
        fixture.pTree->resize(nWidth, 400);
        const QPoint pos(1, fixture.pTree->visualRect(fixture.Row("loose")).center().y());
        PressLeft(fixture, pos);
        QVERIFY(SweepIntoDrag(fixture, pos + QPoint(0, 9)));
        QVERIFY(fixture.pTree->findChildren<QDrag*>().last()->pixmap().isNull());
    }

    void aDragOfAnotherTreeAtTheEdgeScrollsNothingHere()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->resize(300, 120);
        fixture.pTree->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        QScrollBar* const pBar = fixture.pTree->verticalScrollBar();
        QVERIFY(pBar->isVisible() && pBar->maximum() > 40);
        pBar->setValue(40);
        const QScopedPointer<QMimeData> pData(Payload(true));
        QVERIFY(Move(fixture, pData.data(), QPoint(100, 5)));
        QTimer* const pTimer = fixture.pTree->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        bool bTicked = false;
        connect(pTimer, &QTimer::timeout, pTimer, [&bTicked] { bTicked = true; });
        pTimer->start(1);
        QTRY_VERIFY(bTicked);
        QCOMPARE(pBar->value(), 40);
    }

    void afterADragThatEndedElsewhereTheScrollTimerTicksOn()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("loose"));
        PressLeft(fixture, pos);
        QVERIFY(SweepIntoDrag(fixture, pos + QPoint(9, 0)));
        QTimer* const pTimer = fixture.pTree->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(pTimer->isActive());
        const QScopedPointer<QMimeData> pData(Payload(true));
        Drop(fixture, QPoint(100, fixture.pTree->viewport()->height() - 3), pData.data());
        QVERIFY2(!pTimer->isActive(), "a drop stops it");
    }
};

PTV_TEST_MAIN(CDropTest)
#include "tst_drop.moc"
