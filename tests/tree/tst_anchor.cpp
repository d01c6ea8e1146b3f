#include "CMenuDriver.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>

namespace {

SProcessorAllNode Site()
{
    QList<SProcessorNode> listMember;
    for (int n = 0; n < 4; ++n) {
        listMember.append(Processor(QStringLiteral("m%1").arg(n)).Expanded(false));
    }
    return Root({ Group("Stage", listMember), Group("Hall", { Processor("gamma").Expanded(false) }) },
                { Processor("a").Expanded(false), Processor("b").Expanded(false), Processor("c").Expanded(false),
                  Processor("d").Expanded(false) });
}

QList<SProcessorNode> Many(int nProcessors)
{
    QList<SProcessorNode> listProcessor;
    for (int n = 0; n < nProcessors; ++n) {
        listProcessor.append(Processor(QStringLiteral("p%1").arg(n)).Expanded(false));
    }
    return listProcessor;
}

SProcessorAllNode Without(SProcessorAllNode root, const QString& strProcessor)
{
    QList<SProcessorNode> listLeft;
    for (const SProcessorNode& processor : std::as_const(root.listProcessor)) {
        if (processor.strName != strProcessor) {
            listLeft.append(processor);
        }
    }
    root.listProcessor = listLeft;
    return root;
}

/// Reads the tree anew from the library and builds the rows, as a message about a device does.
void Rebuild(CTreeFixture& fixture)
{
    fixture.ReadStore();
    fixture.pTree->RefreshTree();
}

/// The library has lost the node, and the rows follow.
void Lose(CTreeFixture& fixture, const QString& strProcessor)
{
    fixture.control.Set(
        [&](SControlAnswers& answers) { answers.nodeDiscovered = Without(answers.nodeDiscovered, strProcessor); });
    Rebuild(fixture);
}

QModelIndex Named(const CTreeFixture& fixture, const QString& strName)
{
    return strName == QLatin1String("all") ? fixture.Root() : fixture.Row(strName);
}

void ClickRow(CTreeFixture& fixture, const QString& strName, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    fixture.Click(Named(fixture, strName), modifiers);
}

QStringList Sorted(QStringList listName)
{
    listName.sort();
    return listName;
}

/// One gesture of a random user.
struct SStep
{
    QString strRow; ///< empty for a key
    int nKey = 0;
    Qt::KeyboardModifiers modifiers;
};

using TSteps = QVector<SStep>;

SStep RandomStep(QRandomGenerator& random)
{
    static const QStringList listRow{ "all", "Stage", "m0", "m1", "m2", "m3", "Hall", "gamma", "a", "b", "c", "d" };
    static const QVector<Qt::KeyboardModifiers> vecModifiers{ Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                                              Qt::ShiftModifier, Qt::ControlModifier | Qt::ShiftModifier };
    static const QVector<int> vecKey{ Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Down };
    SStep step;
    step.modifiers = vecModifiers.at(random.bounded(vecModifiers.size()));
    if (random.bounded(5) == 0) {
        step.nKey = vecKey.at(random.bounded(vecKey.size()));
        step.modifiers &= Qt::ShiftModifier;
    } else {
        step.strRow = listRow.at(random.bounded(listRow.size()));
    }
    return step;
}

void Take(CTreeFixture& fixture, const SStep& step)
{
    if (step.strRow.isEmpty()) {
        fixture.Press(static_cast<Qt::Key>(step.nKey), step.modifiers);
    } else {
        ClickRow(fixture, step.strRow, step.modifiers);
    }
}

/// What is selected after each step. A step that leaves nothing selected ends the walk: the rows of an
/// empty selection come back with a rebuild.
QVector<QStringList> Walk(const TSteps& vecStep, bool bRebuild)
{
    CTreeFixture fixture(Site());
    QVector<QStringList> vecSelected;
    for (const SStep& step : vecStep) {
        Take(fixture, step);
        vecSelected.append(Sorted(fixture.Selected()));
        if (vecSelected.last().isEmpty()) {
            break;
        }
        if (bRebuild) {
            Rebuild(fixture);
        }
    }
    return vecSelected;
}

} // namespace

/// Devices rebuild the rows while the user selects: keys and Shift-clicks mean the rows that they would have
/// meant without.
class CAnchorTest : public QObject
{
    Q_OBJECT

private slots:
    void theCurrentRowOutlastsARebuild_data()
    {
        QTest::addColumn<QString>("strRow");
        for (const char* const szRow : { "all", "Stage", "m1", "gamma", "d" }) {
            QTest::newRow(szRow) << szRow;
        }
    }
    void theCurrentRowOutlastsARebuild()
    {
        QFETCH(QString, strRow);
        CTreeFixture fixture(Site());
        ClickRow(fixture, strRow);
        fixture.Clear();
        Rebuild(fixture);
        QVERIFY(fixture.pTree->currentIndex().isValid());
        QCOMPARE(fixture.pTree->currentIndex(), Named(fixture, strRow));
        QCOMPARE(fixture.control.Commands(), QStringList());
        QVERIFY(!fixture.pTree->selectionModel()->signalsBlocked());
    }

    void theCurrentOneOfSeveralSelectedRowsOutlastsARebuild()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "a", "Stage", "m2" });
        Rebuild(fixture);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("m2"));
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "Stage", "m2" }));
    }

    void aCurrentRowThatIsNotSelectedGivesWayToTheOneThatIs()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "a", "c" });
        ClickRow(fixture, "c", Qt::ControlModifier);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("c"));
        Rebuild(fixture);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("a"));
    }

    void withSeveralRowsSelectedALostCurrentRowLeavesNone()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "a", "b", "c" });
        Lose(fixture, "c");
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "b" }));
        QVERIFY(!fixture.pTree->currentIndex().isValid());
    }

    void aLostCurrentRowIsNotTheRoot()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "c");
        Lose(fixture, "c");
        QCOMPARE(fixture.Selected(), QStringList());
        QVERIFY(!fixture.pTree->currentIndex().isValid());
    }

    void withoutACurrentRowARebuildMakesTheOneSelectedRowCurrent()
    {
        CTreeFixture fixture(Site());
        QVERIFY(fixture.pTree->currentIndex() == fixture.Root());
        fixture.Load(Site(), { GroupId("Hall") });
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("Hall"));
    }

    void anInformationRowIsNotTakenForItsProcessor()
    {
        CTreeFixture fixture(Root({}, { Processor("a").Expanded(false), Processor("open").Expanded(true) }));
        fixture.Select({ "open", "a" });
        fixture.pTree->selectionModel()->setCurrentIndex(fixture.Info("open"), QItemSelectionModel::NoUpdate);
        Rebuild(fixture);
        QVERIFY(!fixture.pTree->currentIndex().isValid());
    }

    void aLostInformationRowIsNotTakenForTheRoot()
    {
        CTreeFixture fixture(Root({}, { Processor("a").Expanded(false), Processor("open").Expanded(true) }));
        ClickRow(fixture, "all");
        ClickRow(fixture, "a", Qt::ControlModifier);
        fixture.pTree->selectionModel()->setCurrentIndex(fixture.Info("open"), QItemSelectionModel::NoUpdate);
        Lose(fixture, "open");
        QCOMPARE(fixture.Selected(), (QStringList{ "all", "a" }));
        QVERIFY(!fixture.pTree->currentIndex().isValid());
    }

    void aSelectionOfTheLibraryKeepsItsOrder()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "b", "a" });
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("c"), ProcessorId("b") });
        fixture.pTree->RefreshTree();
        QCOMPARE(fixture.Selected(), (QStringList{ "c", "b" }));
    }

    void aSelectionOfTheLibraryKeepsTheCurrentRowThatItHolds()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "a", "b" });
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("c"), ProcessorId("b") });
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("b"));
        QCOMPARE(fixture.control.Commands(), (QStringList{ SelectCall("c"), SelectCall("c, b") }));
    }

    void aSelectionOfOneRowFromTheLibraryMakesItCurrent()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        g_pProcessorTreeData->SetSelectedNodes({ GroupId("Hall") });
        fixture.pTree->RestoreSelection();
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("Hall"));
    }

    void theRowsThatALibrarySelectionLeavesArePaintedAnew()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        const QPoint ptMark(fixture.pTree->width() - 20, fixture.At(fixture.Row("a")).y());
        QCOMPARE(fixture.Grab().pixelColor(ptMark), QColor(0x5F, 0x64, 0x6D));
        fixture.control.Set([](SControlAnswers& answers) { answers.bFaithful = false; });
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("nobody") });
        QSignalSpy spy(fixture.pTree->selectionModel(), &QItemSelectionModel::selectionChanged);
        fixture.pTree->RestoreSelection();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().at(1).value<QItemSelection>().indexes(), QModelIndexList{ fixture.Row("a") });
    }

    void aRebuildKeepsTheScrollValueWhereverTheCurrentRowIs()
    {
        CTreeFixture fixture(Root({}, Many(64)));
        ClickRow(fixture, "p1");
        fixture.pTree->verticalScrollBar()->setValue(500);
        Rebuild(fixture);
        fixture.Grab();
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("p1"));
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 500);
    }

    void aRebuildForcesNoLayout()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "a", "m1" });
        fixture.pTree->nLayouts = 0;
        Rebuild(fixture);
        QCOMPARE(fixture.pTree->nLayouts, 0);
        fixture.Grab();
        QCOMPARE(fixture.pTree->nLayouts, 1);
    }

    void afterARebuildAKeyMeansTheCurrentRow_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<int>("nKey");
        QTest::addColumn<QStringList>("listSelected");
        QTest::newRow("End") << "p40" << int(Qt::Key_End) << QStringList{ "p63" };
        QTest::newRow("PageDown") << "p20" << int(Qt::Key_PageDown) << QStringList{ "p38" };
        QTest::newRow("PageUp") << "p40" << int(Qt::Key_PageUp) << QStringList{ "p21" };
        QTest::newRow("Up") << "p40" << int(Qt::Key_Up) << QStringList{ "p39" };
    }
    void afterARebuildAKeyMeansTheCurrentRow()
    {
        QFETCH(QString, strRow);
        QFETCH(int, nKey);
        CTreeFixture fixture(Root({}, Many(64)));
        fixture.pTree->scrollTo(fixture.Row(strRow));
        ClickRow(fixture, strRow);
        Rebuild(fixture);
        fixture.Press(static_cast<Qt::Key>(nKey));
        QTEST(fixture.Selected(), "listSelected");
    }

    void afterARebuildLeftFoldsAndRightUnfoldsTheCurrentGroup()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "Stage");
        Rebuild(fixture);
        fixture.Press(Qt::Key_Left);
        QVERIFY(!fixture.pTree->isExpanded(fixture.Row("Stage")));
        Rebuild(fixture);
        fixture.Press(Qt::Key_Right);
        QVERIFY(fixture.pTree->isExpanded(fixture.Row("Stage")));
    }

    void afterARebuildTheMenuKeyOpensTheMenuOfTheCurrentRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "m1");
        Rebuild(fixture);
        QStringList listEntry;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            listEntry = CMenuDriver::Entries(pMenu);
            pMenu->close();
        });
        const QPoint pos = fixture.pTree->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, fixture.pTree->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(fixture.pTree->viewport(), &event);
        QVERIFY(menuDriver.HasActed());
        QVERIFY(listEntry.contains("Remove from group"));
    }

    void afterARebuildAnEditorThatClosesSelectsItsRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "m1");
        Rebuild(fixture);
        fixture.Press(Qt::Key_F2);
        auto* const pEditor = fixture.pTree->findChild<QLineEdit*>();
        QVERIFY(pEditor);
        fixture.pTree->selectionModel()->clearSelection();
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.Selected(), QStringList{ "m1" });
    }

    void aShiftClickAfterARebuildSelectsFromTheClickedRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        Rebuild(fixture);
        ClickRow(fixture, "c", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "b", "c" }));
        Rebuild(fixture);
        ClickRow(fixture, "b", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "b" }));
        Rebuild(fixture);
        ClickRow(fixture, "gamma", Qt::ShiftModifier);
        QCOMPARE(Sorted(fixture.Selected()), (QStringList{ "a", "gamma" }));
    }

    void aShiftRangeAfterARebuildLeavesEarlierRowsSelected()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "m1", "b" });
        Rebuild(fixture);
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(Sorted(fixture.Selected()), (QStringList{ "b", "c", "d", "m1" }));
        Rebuild(fixture);
        ClickRow(fixture, "a", Qt::ShiftModifier);
        QCOMPARE(Sorted(fixture.Selected()), (QStringList{ "a", "b", "m1" }));
    }

    void aRangeWhoseStartIsGoneStartsAtTheCurrentRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "b");
        ClickRow(fixture, "c", Qt::ShiftModifier);
        Lose(fixture, "b");
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "c", "d" }));
    }

    void aRangeFromAnInformationRowStartsThereAfterARebuild()
    {
        CTreeFixture fixture(
            Root({}, { Processor("a").Expanded(false), Processor("b").Expanded(false), Processor("open").Expanded(true) }));
        fixture.Press(Qt::Key_End);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Info("open"));
        Rebuild(fixture);
        ClickRow(fixture, "b", Qt::ShiftModifier);
        for (const QModelIndex& index : { fixture.Row("b"), fixture.Row("open"), fixture.Info("open") }) {
            QVERIFY(fixture.pTree->selectionModel()->isSelected(index));
        }
        QVERIFY(!fixture.pTree->selectionModel()->isSelected(fixture.Row("a")));
    }

    void aRangeWithNothingToStartAtIsTheClickedRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "b");
        Lose(fixture, "b");
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), QStringList{ "d" });
        ClickRow(fixture, "c", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "c", "d" }));
    }

    void aRangeWhoseStartIsHiddenIsTheClickedRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "m1");
        Rebuild(fixture);
        fixture.pTree->SetSearchText("a"); // Stage, Hall, gamma, a
        fixture.pTree->SetSearchText("d");
        QVERIFY(fixture.pTree->isRowHidden(fixture.Row("a").row(), fixture.Root()));
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), QStringList{ "d" });
    }

    void aRangeWhoseStartIsInAFoldedGroupIsTheClickedRow()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "m1");
        fixture.pTree->collapse(fixture.Row("Stage"));
        Rebuild(fixture);
        ClickRow(fixture, "b", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), QStringList{ "b" });
    }

    void aRangeByKeyStartsWhereTheUserSeesIt()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "m1");
        ClickRow(fixture, "c", Qt::ShiftModifier);
        fixture.pTree->collapse(fixture.Row("Stage"));
        Rebuild(fixture);
        fixture.Press(Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(Sorted(fixture.Selected()), (QStringList{ "c", "d" }));
    }

    void aRangeByKeyGoesOnFromItsStartWhereItsEndIsGone()
    {
        CTreeFixture fixture(Root({}, Many(64)));
        fixture.pTree->verticalScrollBar()->setValue(1100);
        ClickRow(fixture, "p40");
        ClickRow(fixture, "p42", Qt::ShiftModifier);
        Lose(fixture, "p42");
        fixture.Press(Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(fixture.Selected().size(), 23);
        QVERIFY(fixture.Selected().contains("p40") && fixture.Selected().contains("p63"));
    }

    void aRangeByKeyWithNothingToGoOnFromSelectsNothing()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "b");
        Lose(fixture, "b");
        fixture.Clear();
        fixture.Press(Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), QStringList());
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void foldingAGroupByMouseMovesNoStart_data()
    {
        QTest::addColumn<bool>("bRebuild");
        QTest::newRow("plain") << false;
        QTest::newRow("rebuilt") << true;
    }
    void foldingAGroupByMouseMovesNoStart()
    {
        QFETCH(bool, bRebuild);
        CTreeFixture fixture(Site());
        ClickRow(fixture, "b");
        const QRect rcGroup = fixture.pTree->visualRect(fixture.Row("Stage"));
        QTest::mouseClick(fixture.pTree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(rcGroup.left() - 7, rcGroup.center().y()));
        QVERIFY(!fixture.pTree->isExpanded(fixture.Row("Stage")));
        if (bRebuild) {
            Rebuild(fixture);
        }
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(Sorted(fixture.Selected()), (QStringList{ "b", "c", "d" }));
    }

    void aStepByKeyStartsTheNextRange()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        fixture.Press(Qt::Key_Down);
        Rebuild(fixture);
        ClickRow(fixture, "d", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "b", "c", "d" }));
    }

    void aJumpByKeyStartsTheNextRange()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        fixture.Press(Qt::Key_End);
        Rebuild(fixture);
        ClickRow(fixture, "c", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "c", "d" }));
    }

    void aShiftHeldDuringTheRebuildChangesNothing()
    {
        CTreeFixture fixture(Site());
        ClickRow(fixture, "a");
        ClickRow(fixture, "c", Qt::ShiftModifier); // the window system still says Shift
        QCOMPARE(QGuiApplication::keyboardModifiers(), Qt::ShiftModifier);
        Rebuild(fixture);
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "b", "c" }));
        ClickRow(fixture, "b", Qt::ShiftModifier);
        QCOMPARE(fixture.Selected(), (QStringList{ "a", "b" }));
        QCOMPARE(fixture.pTree->selectionMode(), QAbstractItemView::ExtendedSelection);
    }

    void aDayOfSelectingIsTheSameWithAndWithoutRebuilds()
    {
        QRandomGenerator random(20211);
        for (int nWalk = 0; nWalk < 60; ++nWalk) {
            TSteps vecStep;
            for (int nStep = 0; nStep < 12; ++nStep) {
                vecStep.append(RandomStep(random));
            }
            const QVector<QStringList> vecPlain = Walk(vecStep, false);
            const QVector<QStringList> vecRebuilt = Walk(vecStep, true);
            for (int nStep = 0; nStep < vecPlain.size(); ++nStep) {
                QVERIFY2(vecPlain.at(nStep) == vecRebuilt.value(nStep),
                         qPrintable(QStringLiteral("walk %1, step %2: %3, with rebuilds %4")
                                        .arg(nWalk)
                                        .arg(nStep)
                                        .arg(vecPlain.at(nStep).join(' '), vecRebuilt.value(nStep).join(' '))));
            }
        }
    }
};

PTV_TEST_MAIN(CAnchorTest)
#include "tst_anchor.moc"
