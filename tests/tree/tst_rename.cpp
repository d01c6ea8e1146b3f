#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"
#include "tree/TreeAction.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }) },
                { Processor("loose").Expanded(false), Processor("open").Expanded(true) });
}

QLineEdit* Editor(const CTreeFixture& fixture)
{
    QLineEdit* pOpen = nullptr;
    for (QLineEdit* const pEditor : fixture.pTree->findChildren<QLineEdit*>()) {
        pOpen = pEditor->isVisible() ? pEditor : pOpen;
    }
    return pOpen;
}

/// Selects the row, opens its editor by key and forgets the calls.
QLineEdit* OpenEditor(CTreeFixture& fixture, const QString& strName)
{
    fixture.Select({ strName });
    fixture.Press(Qt::Key_F2);
    return Editor(fixture);
}

bool ReportsSelections(CTreeFixture& fixture)
{
    fixture.Clear();
    fixture.Click(fixture.Row("loose"));
    fixture.Click(fixture.Row("beta"));
    return fixture.control.Commands() == QStringList{ SelectCall("loose"), SelectCall("beta") };
}

QList<SProcessorNode> Many(int nProcessors)
{
    QList<SProcessorNode> listProcessor;
    for (int n = 0; n < nProcessors; ++n) {
        listProcessor.append(Processor(QStringLiteral("p%1").arg(n)).Expanded(false));
    }
    return listProcessor;
}

/// Shows the tree below the other children of the window, with the focus.
void PutInto(QWidget& window, CTreeFixture& fixture)
{
    auto* const pLayout = new QVBoxLayout(&window);
    for (QWidget* const pChild : window.findChildren<QWidget*>()) {
        pLayout->addWidget(pChild);
    }
    pLayout->addWidget(fixture.pTree.data());
    window.resize(300, 600);
    window.show();
    QApplication::setActiveWindow(&window);
    fixture.pTree->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

/// Deletes what deleteLater() was called for.
void RunDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class CRenameTest : public QObject
{
    Q_OBJECT

private slots:
    void f2TypingAndReturnSendTheNewName_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<QString>("strCall");
        QTest::newRow("group") << "Stage"
                               << "g_pPrcListControl.RenameGroup(Stage, \"North\")";
        QTest::newRow("member") << "alpha"
                                << "g_pPrcBasicControl.RenameProcessor(alpha, \"North\")";
        QTest::newRow("processor") << "loose"
                                   << "g_pPrcBasicControl.RenameProcessor(loose, \"North\")";
    }
    void f2TypingAndReturnSendTheNewName()
    {
        QFETCH(QString, strRow);
        QFETCH(QString, strCall);
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, strRow);
        QVERIFY(pEditor && pEditor->hasFocus());
        pEditor->selectAll();
        QTest::keyClicks(pEditor, "North");
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.control.CommandsWithThread(), QStringList{ "gui: " + strCall });
        QVERIFY(!Editor(fixture));
    }

    void afterReturnTheTreeHasTheFocusAndTheRowIsStillSelected()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClick(pEditor, Qt::Key_Return);
        QVERIFY(fixture.pTree->hasFocus());
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void theWholeNameIsThereToEdit()
    {
        CTreeFixture fixture(Site());
        QCOMPARE(OpenEditor(fixture, "Stage")->text(), QStringLiteral("Stage"));
    }

    void aClickElsewhereCommitsAndSelectsThere()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        const QPoint pos = fixture.pTree->viewport()->mapTo(fixture.pTree.data(), fixture.At(fixture.Row("loose")));
        QTest::mouseClick(fixture.pTree->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
        QVERIFY(!Editor(fixture));
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pPrcBasicControl.RenameProcessor(alpha, \"x\")", SelectCall("loose") }));
    }

    void whileANameIsEditedSelectionChangesAreNotReported()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.pTree->selectionModel()->select(fixture.Row("loose"), QItemSelectionModel::Select);
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(g_pProcessorTreeData->GetSelectedNodes(), std::vector<QUuid>{ ProcessorId("alpha") });
    }

    void closingTheEditorSelectsTheCurrentRowWithoutAReport()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        fixture.pTree->clearSelection();
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
        QCOMPARE(fixture.control.CallCount("SetSelectedNodes"), 0);
    }

    void closingTheEditorSelectsTheCurrentRowAlsoWhenAnotherWasEdited()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        fixture.pTree->selectionModel()->setCurrentIndex(fixture.Row("loose"), QItemSelectionModel::NoUpdate);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.Selected(), (QStringList{ "alpha", "loose" }));
    }

    void closingTheEditorSelectsNothingWhenTheRootIsCurrent()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        fixture.pTree->selectionModel()->setCurrentIndex(fixture.Root(), QItemSelectionModel::NoUpdate);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void afterTheEditorHasClosedSelectionChangesAreReportedAgain()
    {
        CTreeFixture fixture(Site());
        QTest::keyClick(OpenEditor(fixture, "alpha"), Qt::Key_Return);
        QVERIFY(ReportsSelections(fixture));
    }

    void aRowThatCannotBeEditedLeavesTheReportsOff_data()
    {
        QTest::addColumn<bool>("bInfo");
        QTest::newRow("root") << false;
        QTest::newRow("information row") << true;
    }
    void aRowThatCannotBeEditedLeavesTheReportsOff()
    {
        QFETCH(bool, bInfo);
        CTreeFixture fixture(Site());
        fixture.pTree->setCurrentIndex(bInfo ? fixture.Info("open") : fixture.Root());
        fixture.Press(Qt::Key_F2);
        QVERIFY(!Editor(fixture));
        QVERIFY(!ReportsSelections(fixture));
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void theNextEditorThatClosesSwitchesTheReportsOnAgain()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "all" });
        fixture.Press(Qt::Key_F2);
        QTest::keyClick(OpenEditor(fixture, "alpha"), Qt::Key_Return);
        QVERIFY(ReportsSelections(fixture));
    }

    void f2WithNothingSelectedDoesNothing()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        fixture.Press(Qt::Key_F2);
        QVERIFY(!Editor(fixture));
        QVERIFY(ReportsSelections(fixture));
    }

    void f2InAnOpenEditorKeepsTheEditor()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        QTest::keyClick(pEditor, Qt::Key_F2);
        QCOMPARE(Editor(fixture), pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("x"));
        QTest::keyClick(pEditor, Qt::Key_Return);
        QVERIFY(ReportsSelections(fixture));
    }

    void escapeLeavesTheEditorOpen()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClick(pEditor, Qt::Key_Escape);
        QCOMPARE(Editor(fixture), pEditor);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void downInAnEditorMovesToTheNextRowAndCommits()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        QTest::keyClick(pEditor, Qt::Key_Down);
        QCOMPARE(fixture.pTree->currentIndex(), fixture.Row("beta"));
        QVERIFY(fixture.control.Commands().contains("g_pPrcBasicControl.RenameProcessor(alpha, \"x\")"));
    }

    // On purpose: the move falls into the rename, so nobody hears of the new selection.
    void downInAnEditorSelectsTheNextRowWithoutAReport()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        QTest::keyClick(pEditor, Qt::Key_Down);
        QCOMPARE(fixture.Selected(), QStringList{ "beta" });
        QCOMPARE(fixture.control.Commands(), QStringList{ "g_pPrcBasicControl.RenameProcessor(alpha, \"x\")" });
        QVERIFY(g_pProcessorTreeData->GetSelectedNodes() == std::vector<QUuid>{ ProcessorId("alpha") });
    }

    // On purpose: a selection of the library takes the current row away, and Qt commits the open editor.
    void aSelectionOfTheLibraryEndsAnOpenRenameAndCommitsWhatWasTyped()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        fixture.control.Set([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("loose") }; });
        fixture.ReadStore();
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pPrcBasicControl.RenameProcessor(alpha, \"x\")", SelectCall("loose") }));
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QVERIFY(!Editor(fixture));
        fixture.Clear();
        fixture.Click(fixture.Row("beta"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("beta") });
    }

    void deleteInAnEditorDeletesACharacterAndNoRow()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        pEditor->setCursorPosition(0);
        QTest::keyClick(pEditor, Qt::Key_Delete);
        QCOMPARE(pEditor->text(), QStringLiteral("lpha"));
        QTest::keyClick(pEditor, Qt::Key_End);
        QTest::keyClick(pEditor, Qt::Key_Delete);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aRefreshThatChangesNoRowKeepsTheOpenEditor()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        fixture.ReadStore(); // nothing has changed
        QCOMPARE(Editor(fixture), pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("x"));
        QVERIFY(pEditor->hasFocus());
    }

    void aRebuildTakesTheEditorAwayWithoutACommit()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        fixture.pTree->RefreshTree();
        RunDeletions();
        QVERIFY(!pEditor);
        QVERIFY(!Editor(fixture));
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
    }

    void afterARebuildHasTakenTheEditorSelectionChangesAreReported()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.pTree->RefreshTree();
        RunDeletions();
        QVERIFY(ReportsSelections(fixture));
    }

    void untilATakenEditorHasDiedSelectionChangesAreNotReported()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pEditor = OpenEditor(fixture, "alpha");
        fixture.pTree->RefreshTree();
        QVERIFY(pEditor);
        fixture.pTree->selectionModel()->select(fixture.Row("loose"), QItemSelectionModel::Select);
        QCOMPARE(fixture.control.Commands(), QStringList());
        RunDeletions();
        QVERIFY(!pEditor);
        QVERIFY(ReportsSelections(fixture));
    }

    void afterARebuildHasTakenTheEditorNobodyHasTheFocus()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.pTree->RefreshTree();
        QVERIFY(!QApplication::focusWidget());
        RunDeletions();
        QVERIFY(!QApplication::focusWidget());
    }

    void aRebuildTakesTheFocusFromNobodyElse()
    {
        CTreeFixture fixture(Site());
        QLineEdit other(fixture.pTree.data());
        other.show();
        other.setFocus();
        fixture.pTree->RefreshTree();
        QVERIFY(other.hasFocus());
    }

    void aSecondRebuildLeavesTheFocusThatTheTreeHasByThen()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.pTree->RefreshTree();
        fixture.pTree->setFocus();
        fixture.pTree->RefreshTree(); // the editor has not ended yet
        QVERIFY(fixture.pTree->hasFocus());
    }

    void anotherEditorThatClosesLeavesTheOpenOneWatched()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QLineEdit other(fixture.pTree->viewport());
        fixture.pTree->closeEditor(&other, QAbstractItemDelegate::NoHint);
        fixture.pTree->selectionModel()->select(fixture.Root(), QItemSelectionModel::ClearAndSelect);
        fixture.pTree->DealAction(ActionRename); // opens none, and nothing is reported until an editor has ended
        delete pEditor;
        QVERIFY(ReportsSelections(fixture));
    }

    void theLateEndOfATakenEditorLeavesReportsOff()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pEditor = OpenEditor(fixture, "alpha");
        fixture.pTree->RefreshTree();
        fixture.pTree->setCurrentIndex(fixture.Root());
        fixture.Press(Qt::Key_F2);
        RunDeletions();
        QVERIFY(!pEditor);
        QVERIFY(!ReportsSelections(fixture));
    }

    void keysMeantForATakenEditorReachNothing_data()
    {
        QTest::addColumn<int>("nKey");
        for (const Qt::Key key : { Qt::Key_Delete, Qt::Key_Space, Qt::Key_Return, Qt::Key_Left, Qt::Key_Down, Qt::Key_F2 }) {
            QTest::newRow(qPrintable(QKeySequence(key).toString())) << static_cast<int>(key);
        }
    }
    void keysMeantForATakenEditorReachNothing()
    {
        QFETCH(int, nKey);
        CTreeFixture fixture(Site());
        QWidget window;
        auto* const pButton = new QPushButton(&window);
        PutInto(window, fixture);
        const QSignalSpy spy(pButton, &QPushButton::clicked);
        QTest::keyClicks(OpenEditor(fixture, "alpha"), "typed");
        fixture.pTree->RefreshTree();
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(nKey));
        RunDeletions();
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(nKey));
        QCOMPARE(spy.count(), 0);
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
        QVERIFY(!Editor(fixture));
        fixture.pTree.reset();
    }

    void aRebuildUnderAnEditorScrollsNothing()
    {
        CTreeFixture fixture(Root({ Group("Stage", Many(64)) }));
        fixture.pTree->verticalScrollBar()->setValue(500);
        QTest::keyClicks(OpenEditor(fixture, "p20"), "typed");
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 500);
        fixture.pTree->RefreshTree();
        fixture.Grab();
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 500);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aRenameOfARowOutOfSightScrollsToIt_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<int>("nScroll");
        QTest::newRow("above") << "p2" << 900;
        QTest::newRow("below") << "p60" << 0;
        QTest::newRow("half") << "p17" << 0;
    }
    void aRenameOfARowOutOfSightScrollsToIt()
    {
        QFETCH(QString, strRow);
        QFETCH(int, nScroll);
        CTreeFixture fixture(Root({}, Many(64)), { ProcessorId(strRow) });
        fixture.pTree->verticalScrollBar()->setValue(nScroll);
        fixture.Press(Qt::Key_F2);
        QVERIFY(Editor(fixture) && Editor(fixture)->hasFocus());
        QVERIFY(fixture.pTree->viewport()->rect().contains(Editor(fixture)->geometry()));
    }

    void aRenameOfARowOutOfSightReplacesItsName()
    {
        CTreeFixture fixture(Root({}, Many(64)), { ProcessorId("p60") });
        fixture.Press(Qt::Key_F2);
        fixture.Grab(); // paints the row for the first time
        QTest::keyClicks(Editor(fixture), "North");
        QTest::keyClick(Editor(fixture), Qt::Key_Return);
        QCOMPARE(fixture.control.Commands(), QStringList{ "g_pPrcBasicControl.RenameProcessor(p60, \"North\")" });
    }

    void aRenameOfARowInSightScrollsNothing()
    {
        CTreeFixture fixture(Root({}, Many(64)), { ProcessorId("p20") });
        fixture.pTree->verticalScrollBar()->setValue(333);
        fixture.Press(Qt::Key_F2);
        QVERIFY(Editor(fixture));
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 333);
    }

    void aRenameInAFoldedGroupUnfoldsAndScrollsNothing()
    {
        CTreeFixture fixture(Root({ Group("Hall", { Processor("gamma") }).Expanded(false) }, Many(64)), { ProcessorId("gamma") });
        fixture.pTree->verticalScrollBar()->setValue(333);
        ExpectWarning("Negative sizes"); // the place of such a row is empty
        fixture.Press(Qt::Key_F2);
        QVERIFY(!fixture.pTree->isExpanded(fixture.Row("Hall")));
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 333);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void afterARebuildHasTakenTheEditorARenameWorksAgain()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.pTree->RefreshTree();
        RunDeletions();
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QVERIFY(pEditor);
        QTest::keyClicks(pEditor, "2");
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(fixture.control.Commands(), QStringList{ "g_pPrcBasicControl.RenameProcessor(alpha, \"2\")" });
    }

    void theLateEndOfAClosedEditorDoesNotEndTheNextRename()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pFirst = OpenEditor(fixture, "alpha");
        QTest::keyClick(pFirst, Qt::Key_Return);
        QLineEdit* const pSecond = OpenEditor(fixture, "alpha");
        RunDeletions();
        QVERIFY(!pFirst);
        QCOMPARE(Editor(fixture), pSecond);
        fixture.pTree->selectionModel()->select(fixture.Row("loose"), QItemSelectionModel::Select);
        QCOMPARE(fixture.control.CallCount("SetSelectedNodes"), 0);
    }

    void theLateEndOfAClosedEditorLeavesReportsOff()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pFirst = OpenEditor(fixture, "alpha");
        QTest::keyClick(pFirst, Qt::Key_Return);
        fixture.Select({ "all" });
        fixture.Press(Qt::Key_F2);
        RunDeletions();
        QVERIFY(!pFirst);
        QVERIFY(!ReportsSelections(fixture));
    }

    void aNodeThatVanishesUnderItsEditorIsNotRenamed()
    {
        CTreeFixture fixture(Site());
        QVERIFY(OpenEditor(fixture, "alpha"));
        fixture.Load(Root({ Group("Stage") }), { GroupId("Stage") });
        RunDeletions();
        QVERIFY(!Editor(fixture));
        QCOMPARE(fixture.control.Commands(), QStringList());
        QCOMPARE(fixture.Selected(), QStringList{ "Stage" });
    }

    void theTreeMayGoWhileAnEditorIsOpen()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        fixture.pTree.reset();
        QVERIFY(!pEditor);
        QCOMPARE(fixture.control.Commands().filter("Rename"), QStringList());
    }

    void theTreeMayGoRightAfterAnEditorHasClosedOrWasTakenAway_data()
    {
        QTest::addColumn<bool>("bClosed");
        QTest::newRow("closed") << true;
        QTest::newRow("taken away by a rebuild") << false;
    }
    void theTreeMayGoRightAfterAnEditorHasClosedOrWasTakenAway()
    {
        QFETCH(bool, bClosed);
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pEditor = OpenEditor(fixture, "alpha");
        bClosed ? QTest::keyClick(pEditor, Qt::Key_Return) : fixture.pTree->RefreshTree();
        QVERIFY2(pEditor, "dies later");
        fixture.pTree.reset();
        QVERIFY(!pEditor);
    }

    void aRenameThatFollowsARebuildAtOnceIsNotEndedByTheOldEditor()
    {
        CTreeFixture fixture(Site());
        const QPointer<QLineEdit> pFirst = OpenEditor(fixture, "alpha");
        fixture.pTree->RefreshTree();
        fixture.pTree->setCurrentIndex(fixture.Row("alpha"));
        fixture.Press(Qt::Key_F2);
        QLineEdit* const pSecond = Editor(fixture);
        QVERIFY(pSecond && pSecond != pFirst);
        RunDeletions();
        QVERIFY(!pFirst);
        fixture.Clear();
        fixture.pTree->selectionModel()->select(fixture.Row("loose"), QItemSelectionModel::Select);
        QCOMPARE(fixture.control.CallCount("SetSelectedNodes"), 0);
    }

    void aNameThatTheLibraryRefusesComesBackWithTheNextRows()
    {
        CTreeFixture fixture(Site());
        QLineEdit* const pEditor = OpenEditor(fixture, "alpha");
        QTest::keyClicks(pEditor, "x");
        QTest::keyClick(pEditor, Qt::Key_Return);
        fixture.Load(Site(), { ProcessorId("alpha") });
        QCOMPARE(OpenEditor(fixture, "alpha")->text(), QStringLiteral("alpha"));
    }
};

PTV_TEST_MAIN(CRenameTest)
#include "tst_rename.moc"
