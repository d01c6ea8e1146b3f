#include "TestMain.h"
#include "fixtures/CDragRun.h"

#include <QDrag>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>
#include <QWindow>

#include <functional>

namespace {

const QColor colorBackground("#1C1E21");
const QColor colorSelected("#5F646D");

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }).Expanded(false) },
                { Processor("loose").Expanded(false), Processor("open").Expanded(true), Processor("last").Expanded(false) });
}

QColor ColorOf(const CTreeFixture& fixture, const QModelIndex& index, int nFromTop)
{
    return fixture.Grab().pixelColor(200, fixture.pTree->visualRect(index).top() + nFromTop);
}

/// The frame's pen covers half of each pixel at its sides.
bool IsHalfOrange(const QColor& color)
{
    const auto fnNear = [](int a, int b) { return qAbs(a - b) <= 3; };
    return fnNear(color.red(), (0x1C + 0xED) / 2) && fnNear(color.green(), (0x1E + 0x81) / 2)
        && fnNear(color.blue(), (0x21 + 0x1D) / 2);
}

} // namespace

/// Drags through QDrag::exec(), on a platform that runs them.
class CDragTest : public QObject
{
    Q_OBJECT

private slots:
    void draggingProcessorsOntoAFoldedGroupMovesThemInAndOpensIt()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "alpha", "last" });
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] { run.MoveOnto(fixture.Row("Hall")); }, [&] { run.Release(); } });
        QVERIFY(run.HasRun());
        QCOMPARE(fixture.control.CommandsWithThread(),
                 (QStringList{ "gui: g_pPrcListControl.SetExpanded(Hall, true)", "gui: " + MoveCall("loose", "Hall"),
                               "gui: " + MoveCall("alpha", "Hall"), "gui: " + MoveCall("last", "Hall") }));
    }

    void draggingOutOfAGroupOntoTheRoot()
    {
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("beta"), { [&] { run.MoveOnto(fixture.Root()); }, [&] { run.Release(); } });
        QCOMPARE(fixture.control.Commands(), (QStringList{ SelectCall("beta"), MoveCall("beta", "{null}") }));
    }

    void aDragOfProcessorsMayOnlyMoveThem()
    {
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] {
                    QCOMPARE(run.Drag()->supportedActions(), Qt::DropActions(Qt::MoveAction));
                    QCOMPARE(run.Drag()->mimeData()->data("PROCESSOR DATA"), QByteArray(1, 1));
                } });
        QVERIFY(run.HasRun());
    }

    void aDragWithAGroupOrTheRootIsRefusedEverywhere_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::newRow("group") << QStringList{ "loose", "Hall" };
        QTest::newRow("root") << QStringList{ "all", "loose" };
    }
    void aDragWithAGroupOrTheRootIsRefusedEverywhere()
    {
        QFETCH(QStringList, listSelected);
        CTreeFixture fixture(Site());
        fixture.Select(listSelected);
        CDragRun run(fixture);
        QByteArray bytes;
        bool bImage = true;
        run.Run(fixture.Row("loose"),
                { [&] {
                     bytes = run.Drag()->mimeData()->data("PROCESSOR DATA");
                     bImage = !run.Drag()->pixmap().isNull();
                     run.MoveOnto(fixture.Row("Stage"));
                 },
                  [&] { run.Release(); } });
        QCOMPARE(bytes, QByteArray(1, 0));
        QVERIFY2(!bImage, "no image is shown");
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aProcessorThatIsADropTargetHasALineOnTopOfIt()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        CDragRun run(fixture);
        const auto fnCheck = [&] {
            for (const int nRow : { 0, 1, 2, 3 }) { // around a rectangle two pixels high
                QVERIFY(IsHalfOrange(ColorOf(fixture, fixture.Row("loose"), nRow)));
            }
            QCOMPARE(ColorOf(fixture, fixture.Row("loose"), 4), colorBackground);
            QCOMPARE(ColorOf(fixture, fixture.Row("loose"), 30), colorBackground);
        };
        run.Run(fixture.Row("last"), { [&] { run.MoveOnto(fixture.Row("loose")); }, fnCheck });
        QVERIFY(run.HasRun());
    }

    void aGroupOrTheRootThatIsADropTargetIsFramed_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::newRow("group") << "Hall";
        QTest::newRow("root") << "all";
    }
    void aGroupOrTheRootThatIsADropTargetIsFramed()
    {
        QFETCH(QString, strRow);
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        const QModelIndex index = strRow == "all" ? fixture.Root() : fixture.Row(strRow);
        const QRect rc = fixture.pTree->visualRect(index);
        CDragRun run(fixture);
        const auto fnCheck = [&] {
            const QImage image = fixture.Grab();
            const int nMiddle = rc.center().y();
            QVERIFY(IsHalfOrange(image.pixelColor(200, rc.top() + 1)));
            QVERIFY(IsHalfOrange(image.pixelColor(200, rc.bottom())));
            QVERIFY(IsHalfOrange(image.pixelColor(0, nMiddle)));
            QVERIFY(IsHalfOrange(image.pixelColor(image.width() - 7, nMiddle)));
            QCOMPARE(image.pixelColor(200, nMiddle), colorBackground);
        };
        run.Run(fixture.Row("last"), { [&] { run.MoveOnto(index); }, fnCheck });
        QVERIFY(run.HasRun());
    }

    void aSelectedRowOrAnInformationRowIsNotMarkedAsADropTarget()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        CDragRun run(fixture);
        run.Run(fixture.Row("last"),
                { [&] { run.MoveOnto(fixture.Row("last")); },
                  [&] {
                      QCOMPARE(ColorOf(fixture, fixture.Row("last"), 1), colorSelected);
                      run.MoveOnto(fixture.Info("open"));
                  },
                  [&] {
                      for (const int nRow : { 0, 1, 2, 3 }) {
                          QCOMPARE(ColorOf(fixture, fixture.Info("open"), nRow), colorBackground);
                          QCOMPARE(ColorOf(fixture, fixture.Row("open"), nRow), colorBackground);
                      }
                  } });
        QVERIFY(run.HasRun());
    }

    void theDragImageShowsTheRowsAtHalfStrengthWithTheirGaps()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha", "open" });
        CDragRun run(fixture);
        QImage image;
        QPoint ptHotSpot;
        const QPoint ptPress = fixture.At(fixture.Row("alpha"));
        run.Run(fixture.Row("alpha"), { [&] {
                    image = run.Drag()->pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
                    ptHotSpot = run.Drag()->hotSpot();
                } });
        const QRect rcAlpha = fixture.pTree->visualRect(fixture.Row("alpha"));
        const QRect rcOpen = fixture.pTree->visualRect(fixture.Row("open"));
        const QRect rcInfo = fixture.pTree->visualRect(fixture.Info("open"));
        const int nTop = rcAlpha.top();
        QCOMPARE(image.size(), QSize(300 - 12, rcInfo.bottom() - nTop + 1));
        QCOMPARE(ptHotSpot, QPoint(ptPress.x() + 8, ptPress.y() + 3 - nTop));
        const auto fnAlpha = [&](int y) { return qAlpha(image.pixel(200, y - nTop)); };
        QVERIFY2(qAbs(fnAlpha(rcAlpha.center().y() + 10) - 128) <= 1, "the selected shape, half transparent");
        QCOMPARE(fnAlpha(rcAlpha.top()), 0);         // above the shape: the tree's background
        QCOMPARE(fnAlpha(rcAlpha.bottom() + 20), 0); // between the rows
        QVERIFY2(qAbs(fnAlpha(rcOpen.center().y() + 10) - 128) <= 1, "the second row");
        QVERIFY2(qAbs(fnAlpha(rcInfo.bottom() - 3) - 128) <= 1, "its information card");
        const QColor color = image.pixelColor(200, rcAlpha.center().y() + 10 - nTop);
        QVERIFY(qAbs(color.red() - 0x5F) <= 2 && qAbs(color.green() - 0x64) <= 2 && qAbs(color.blue() - 0x6D) <= 2);
    }

    void theImageGoesAtOnceWhenTheDropComesOrTheButtonIsReleased_data()
    {
        QTest::addColumn<bool>("bDrop");
        QTest::newRow("drop") << true;
        QTest::newRow("release") << false;
    }
    void theImageGoesAtOnceWhenTheDropComesOrTheButtonIsReleased()
    {
        QFETCH(bool, bDrop);
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] {
                    QVERIFY(!run.Drag()->pixmap().isNull());
                    const QPoint pos = fixture.At(fixture.Row("Hall"));
                    QDropEvent drop(pos, Qt::MoveAction, run.Drag()->mimeData(), Qt::LeftButton, Qt::NoModifier);
                    QMouseEvent release(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
                    bDrop ? fixture.pTree->dropEvent(&drop) : fixture.pTree->mouseReleaseEvent(&release);
                    QVERIFY(run.Drag()->pixmap().isNull());
                } });
        QVERIFY(run.HasRun());
    }

    void theWheelDoesNothingDuringADrag()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->resize(300, 120);
        QVERIFY(fixture.pTree->verticalScrollBar()->maximum() > 0);
        CDragRun run(fixture);
        bool bAccepted = false;
        run.Run(fixture.Row("Stage"), { [&] {
                    const QPoint pos(100, 50);
                    QWheelEvent event(pos, fixture.pTree->viewport()->mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                                      Qt::NoModifier, Qt::NoScrollPhase, false);
                    event.ignore();
                    fixture.pTree->wheelEvent(&event);
                    bAccepted = event.isAccepted();
                } });
        QVERIFY(run.HasRun());
        QVERIFY(bAccepted);
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 0);
    }

    void atTheEdgesNothingScrollsWhileTheViewsOwnBarIsOutOfSight_data()
    {
        QTest::addColumn<bool>("bVisible");
        QTest::addColumn<int>("nY");
        QTest::addColumn<int>("nStep");
        QTest::newRow("bottom, bar hidden") << false << 110 << 0;
        QTest::newRow("bottom, bar shown") << true << 110 << 1;
        QTest::newRow("top, bar shown") << true << 5 << -1;
        QTest::newRow("middle, bar shown") << true << 60 << 0;
    }
    void atTheEdgesNothingScrollsWhileTheViewsOwnBarIsOutOfSight()
    {
        QFETCH(bool, bVisible);
        QFETCH(int, nY);
        QFETCH(int, nStep);
        CTreeFixture fixture(Site());
        fixture.pTree->resize(300, 120);
        if (bVisible) {
            fixture.pTree->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        }
        QScrollBar* const pBar = fixture.pTree->verticalScrollBar();
        pBar->setValue(40);
        QTimer* const pTimer = fixture.pTree->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        pTimer->setInterval(10);
        CDragRun run(fixture);
        int nTicks = 0;
        connect(pTimer, &QTimer::timeout, pTimer, [&] { ++nTicks; });
        const QModelIndex indexFrom = fixture.pTree->indexAt(QPoint(100, 60));
        fixture.pTree->setCurrentIndex(indexFrom);
        run.Run(indexFrom,
                { [&] { run.MoveTo(QPoint(100, nY)); },
                  [&] {
                      const int nBefore = pBar->value();
                      nTicks = 0;
                      QVERIFY(QTest::qWaitFor([&] { return nTicks >= 1; }, nPatience));
                      QCOMPARE(pBar->value() - nBefore, nTicks * nStep);
                  } });
        QVERIFY(run.HasRun());
    }

    void aDragSurvivesARebuildOfTheRows()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "alpha" });
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"),
                { [&] { run.MoveOnto(fixture.Row("Stage")); },
                  [&] { fixture.Load(Site(), { ProcessorId("loose"), ProcessorId("alpha") }); },
                  [&] { run.MoveOnto(fixture.Row("beta")); }, [&] { run.Release(); } });
        QCOMPARE(fixture.control.Commands(), (QStringList{ MoveCall("loose", "Stage"), MoveCall("alpha", "Stage") }));
    }

    void aNodeThatVanishesDuringItsDragIsNotMoved()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "alpha" });
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"),
                { [&] {
                     fixture.Load(Root({ Group("Stage", { Processor("alpha") }) }),
                                  { ProcessorId("loose"), ProcessorId("alpha") });
                 },
                  [&] { run.MoveOnto(fixture.Root()); }, [&] { run.Release(); } });
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("alpha", "{null}") });
    }

    void aDragThatIsCancelledMovesNothingAndTheTreeWorksOn()
    {
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] { run.MoveOnto(fixture.Row("Hall")); }, [] { QDrag::cancel(); } });
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("alpha") });
        fixture.Clear();
        CDragRun again(fixture);
        again.Run(fixture.Row("alpha"), { [&] { again.MoveOnto(fixture.Root()); }, [&] { again.Release(); } });
        QCOMPARE(fixture.control.Commands().last(), MoveCall("alpha", "{null}"));
    }

    void afterADragTheRowUnderTheMouseIsHoveredAgain()
    {
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] { run.MoveOnto(fixture.Row("Hall")); }, [] { QDrag::cancel(); } });
        run.Release();
        run.MoveOnto(fixture.Row("loose"));
        QCOMPARE(ColorOf(fixture, fixture.Row("loose"), 30), QColor("#42464D"));
    }

    void theTreeMayGoWhileItsRowsAreDragged()
    {
        CTreeFixture fixture(Site());
        CDragRun run(fixture);
        run.Run(fixture.Row("alpha"), { [&] { run.MoveOnto(fixture.Row("Hall")); }, [&] { fixture.pTree.reset(); } });
        QVERIFY(run.HasRun());
        QVERIFY(!fixture.pTree);
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("alpha") });
    }
};

PTV_TEST_MAIN(CDragTest)
#include "tst_drag.moc"
