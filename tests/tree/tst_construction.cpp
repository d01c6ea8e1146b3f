#include "TestMain.h"
#include "TreeText.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"
#include "interfaces/widgets/CScrollBar.h"
#include "tree/TreeAction.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QHeaderView>
#include <QMetaMethod>
#include <QScrollBar>
#include <QTimer>
#include <QTranslator>

namespace {

/// Puts "* " in front of every text of the tree.
class CStarTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return qstrcmp(context, "CProcessorTree") == 0 ? QStringLiteral("* ") + QString::fromUtf8(sourceText) : QString();
    }
    bool isEmpty() const override
    {
        return false;
    }
};

QStringList ActionTexts(const CProcessorTree* pTree)
{
    QStringList listText;
    for (const QAction* pAction : pTree->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        listText.append(pAction->text());
    }
    return listText;
}

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }).Expanded(false) },
                { Processor("loose").Expanded(true) });
}

CScrollBar* Bar(const CTreeFixture& fixture, Qt::Orientation orientation)
{
    for (CScrollBar* const pBar : fixture.pTree->findChildren<CScrollBar*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (pBar->orientation() == orientation) {
            return pBar;
        }
    }
    return nullptr;
}

SProcessorAllNode ManyProcessors(int nCount)
{
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < nCount; ++i) {
        listProcessor.append(Processor(QStringLiteral("p%1").arg(i)).Expanded(false));
    }
    return Root({}, listProcessor);
}

} // namespace

class CConstructionTest : public QObject
{
    Q_OBJECT

private slots:
    void aNewTreeCarriesTheSettingsOfThePanel()
    {
        const CTreeFixture fixture(Site());
        const CTestTree& tree = *fixture.pTree;
        QCOMPARE(tree.objectName(), QStringLiteral("ProcessorTree"));
        QCOMPARE(tree.selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(tree.selectionMode(), QAbstractItemView::ExtendedSelection);
        QCOMPARE(tree.focusPolicy(), Qt::ClickFocus);
        QVERIFY(tree.hasMouseTracking());
        QCOMPARE(tree.indentation(), 15);
        QCOMPARE(tree.contextMenuPolicy(), Qt::DefaultContextMenu);
        QVERIFY(tree.expandsOnDoubleClick());
        QCOMPARE(tree.editTriggers(), QAbstractItemView::NoEditTriggers);
        QVERIFY(tree.acceptDrops());
        QVERIFY2(!tree.dragEnabled(), "the base class's drag stays off");
        QCOMPARE(tree.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(tree.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(tree.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(tree.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(tree.header()->isHidden());
        QCOMPARE(tree.model()->columnCount(), 1);
    }

    void hoverEventsReachTheTreeWhateverTheStyleSheetSays()
    {
        CControlDouble control;
        const CTestTree tree(nullptr, true); // has no sheet
        QVERIFY(tree.testAttribute(Qt::WA_Hover));
        QVERIFY(tree.viewport()->testAttribute(Qt::WA_Hover));
    }

    void theTreeOwnsItsPartsAndItsScrollTimerRests()
    {
        const CTreeFixture fixture(Site());
        QCOMPARE(fixture.pTree->model()->parent(), static_cast<QObject*>(fixture.pTree.data()));
        QVERIFY(fixture.pTree->itemDelegate()->inherits("CProcessorTreeDelegate"));
        QCOMPARE(fixture.pTree->itemDelegate()->parent(), static_cast<QObject*>(fixture.pTree.data()));
        const auto listTimer = fixture.pTree->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(listTimer.size(), 1);
        QCOMPARE(listTimer.first()->interval(), 500);
        QVERIFY(!listTimer.first()->isActive());
    }

    void theMetaObjectHasThreeSlotsAndNothingElse()
    {
        const QMetaObject& meta = CProcessorTree::staticMetaObject;
        QStringList listMethod;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            listMethod.append(QString::fromLatin1(meta.method(i).name()));
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
            QCOMPARE(meta.method(i).access(), QMetaMethod::Protected);
        }
        QCOMPARE(listMethod, (QStringList{ "selectionChanged", "verticalScrollbarValueChanged", "closeEditor" }));
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void theSixActionsHaveTheirTextsInTheOrderOfTheirNumbers()
    {
        const CTreeFixture fixture(Site());
        QCOMPARE(ActionTexts(fixture.pTree.data()),
                 (QStringList{ "Rename", "Delete", "Group", "Ungroup", "Move to group", "Remove from group" }));
    }

    void noActionHasAShortcut()
    {
        const CTreeFixture fixture(Site());
        for (const QAction* pAction : fixture.pTree->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
            QVERIFY(pAction->shortcut().isEmpty());
            QVERIFY(pAction->isEnabled());
        }
    }

    void numbersThatAreNoActionHaveNoText_data()
    {
        QTest::addColumn<int>("nAction");
        QTest::newRow("below") << -1;
        QTest::newRow("above") << 6;
        QTest::newRow("far above") << 1000;
    }
    void numbersThatAreNoActionHaveNoText()
    {
        QFETCH(int, nAction);
        QCOMPARE(TreeAction::GetText(nAction), QString());
    }

    void aLanguageChangeGivesAllSixActionsTheirNewTexts()
    {
        const CTreeFixture fixture(Site());
        CStarTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(ActionTexts(fixture.pTree.data()),
                     (QStringList{ "* Rename", "* Delete", "* Group", "* Ungroup", "* Move to group", "* Remove from group" }));
        QCoreApplication::removeTranslator(&translator);
        QTRY_COMPARE(ActionTexts(fixture.pTree.data()).first(), QStringLiteral("Rename"));
    }

    void otherChangesLeaveTheTextsAlone()
    {
        const CTreeFixture fixture(Site());
        QAction* const pAction = fixture.pTree->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).first();
        pAction->setText(QStringLiteral("touched"));
        QEvent event(QEvent::EnabledChange);
        QCoreApplication::sendEvent(fixture.pTree.data(), &event);
        QCOMPARE(pAction->text(), QStringLiteral("touched"));
    }

    void aTreeIsFilledBeforeItsFirstRefresh()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.nodeDiscovered = Site(); });
        g_pProcessorTreeData->Refresh();
        const CTestTree tree(nullptr, true);
        QAbstractItemModelTester tester(tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        QCOMPARE(tree.model()->rowCount(tree.model()->index(0, 0)), 3);
    }

    void aRefreshShowsTheRowsAsTheStoreExpandsAndSelectsThem()
    {
        CTreeFixture fixture(Site(), { ProcessorId("beta"), GroupId("Hall") });
        QAbstractItemModelTester tester(fixture.pTree->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        fixture.pTree->RefreshTree();
        QCOMPARE(TreeText(fixture.pTree.data()), QStringLiteral(R"(all [expanded]
  group Stage [expanded]
    processor alpha
      info alpha
    processor beta [selected]
      info beta
  group Hall [selected]
    processor gamma
      info gamma
  processor loose [expanded]
    info loose
)"));
    }

    void aRefreshTellsTheLibraryNothing()
    {
        CTreeFixture fixture(Site(), { ProcessorId("beta"), GroupId("Hall") });
        fixture.pTree->RefreshTree();
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aRefreshOfAPaneWithoutASelectionReportsItsRootOnce()
    {
        CTreeFixture fixture(Site(), {});
        fixture.control.Set([](SControlAnswers& answers) { answers.vecDiscoveredSelection.clear(); });
        fixture.ReadStore();
        fixture.Clear();
        fixture.pTree->RefreshTree();
        QCOMPARE(fixture.Selected(), QStringList{ "all" });
        QCOMPARE(fixture.control.CommandsWithThread(), QStringList{ "gui: " + SelectCall("{null}") });
    }

    void aRefreshKeepsTheSelectionOfTheNodesThatAreStillThere()
    {
        CTreeFixture fixture(Site(), { ProcessorId("alpha"), ProcessorId("loose") });
        fixture.Load(Root({ Group("Hall", { Processor("loose") }) }), { ProcessorId("alpha"), ProcessorId("loose") });
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void signalsFlowAgainAfterARefresh()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->RefreshTree();
        QVERIFY(!fixture.pTree->signalsBlocked());
        fixture.Click(fixture.Row("alpha"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("alpha") });
    }

    void foldingARowByHandWritesToTheStoreAndTheLibrary()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->collapse(fixture.Row("Stage"));
        fixture.pTree->expand(fixture.Row("Hall"));
        QCOMPARE(fixture.control.CommandsWithThread(),
                 (QStringList{ "gui: g_pPrcListControl.SetExpanded(Stage, false)",
                               "gui: g_pPrcListControl.SetExpanded(Hall, true)" }));
        QVERIFY(!g_pProcessorTreeData->GetGroup(GroupId("Stage")).bExpanded);
        QVERIFY(g_pProcessorTreeData->GetGroup(GroupId("Hall")).bExpanded);
    }

    void aDoubleClickFoldsARowAndSaysSo()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("Stage"));
        QTest::mouseDClick(fixture.pTree->viewport(), Qt::LeftButton, Qt::NoModifier, fixture.At(fixture.Row("Stage")));
        QVERIFY(!fixture.pTree->isExpanded(fixture.Row("Stage")));
        QVERIFY(fixture.control.Commands().contains("g_pPrcListControl.SetExpanded(Stage, false)"));
    }

    void aCollapsedRootOpensAgainAtARefresh()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->collapse(fixture.Root());
        fixture.Clear();
        fixture.pTree->RefreshTree();
        QVERIFY(fixture.pTree->isExpanded(fixture.Root()));
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aSearchTextHidesRowsAndAnEmptyOneShowsThemAgain()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->SetSearchText("ALPH");
        QVERIFY(!fixture.pTree->isRowHidden(fixture.Row("alpha").row(), fixture.Row("Stage")));
        QVERIFY(fixture.pTree->isRowHidden(fixture.Row("beta").row(), fixture.Row("Stage")));
        QVERIFY(fixture.pTree->isRowHidden(fixture.Row("loose").row(), fixture.Root()));
        fixture.pTree->SetSearchText(QString());
        QVERIFY(!TreeText(fixture.pTree.data()).contains("[hidden]"));
    }

    void aRefreshEndsTheFilter()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->SetSearchText("alpha");
        fixture.pTree->RefreshTree();
        QVERIFY(!TreeText(fixture.pTree.data()).contains("[hidden]"));
    }

    void theOverlayBarsLieWhereTheyShould()
    {
        CTreeFixture fixture(ManyProcessors(100));
        CScrollBar* const pHorizontal = Bar(fixture, Qt::Horizontal);
        CScrollBar* const pVertical = Bar(fixture, Qt::Vertical);
        pHorizontal->setFixedHeight(7);
        pVertical->setFixedWidth(4);
        fixture.pTree->resize(200, 320);
        QCOMPARE(pHorizontal->geometry(), QRect(QPoint(0, 312), QPoint(191, 318)));
        QCOMPARE(pVertical->geometry(), QRect(QPoint(195, 1), QPoint(198, 319)));
    }

    void theOverlayBarsLieBesideTheRows()
    {
        CTreeFixture fixture(ManyProcessors(100));
        fixture.pTree->resize(200, 320);
        QCOMPARE(Bar(fixture, Qt::Horizontal)->height(), 5);
        QCOMPARE(Bar(fixture, Qt::Vertical)->width(), 5);
        QVERIFY2(Bar(fixture, Qt::Vertical)->x() > 200 - 7, "the rows' shapes stop 6 pixels short of the edge");
    }

    void aBarShowsOnlyWhereThereIsSomethingToScroll()
    {
        CTreeFixture fixture(ManyProcessors(100));
        fixture.pTree->resize(200, 320);
        QVERIFY(Bar(fixture, Qt::Vertical)->isVisible());
        QVERIFY(!Bar(fixture, Qt::Horizontal)->isVisible());
        QVERIFY2(!fixture.pTree->verticalScrollBar()->isVisible(), "the view's own bar stays out of sight");
        fixture.Load(ManyProcessors(3), { QUuid() });
        fixture.pTree->resize(210, 330);
        QVERIFY(!Bar(fixture, Qt::Vertical)->isVisible());
    }

    void aTreeBelowTenPixelsShowsNoBar_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("bVisible");
        QTest::newRow("narrow") << QSize(9, 320) << false;
        QTest::newRow("low") << QSize(200, 9) << false;
        QTest::newRow("just wide enough") << QSize(10, 320) << true;
        QTest::newRow("just high enough") << QSize(200, 10) << true;
    }
    void aTreeBelowTenPixelsShowsNoBar()
    {
        QFETCH(QSize, size);
        QFETCH(bool, bVisible);
        CTreeFixture fixture(ManyProcessors(100));
        fixture.pTree->header()->setStretchLastSection(false);
        fixture.pTree->setColumnWidth(0, 2000);
        fixture.pTree->resize(200, 320);
        QTRY_VERIFY(fixture.pTree->horizontalScrollBar()->maximum() > 0);
        fixture.pTree->resize(210, 330); // the bars show what was to scroll at the resize
        fixture.pTree->resize(200, 320); // one edge keeps its length below, and with it what is to scroll along it
        QVERIFY(Bar(fixture, Qt::Vertical)->isVisible() && Bar(fixture, Qt::Horizontal)->isVisible());
        fixture.pTree->resize(size);
        QCOMPARE(Bar(fixture, Qt::Vertical)->isVisible(), bVisible);
        QCOMPARE(Bar(fixture, Qt::Horizontal)->isVisible(), bVisible);
    }

    void aTinyTreeShowsNoBarWhenRowsCome()
    {
        CTreeFixture fixture(ManyProcessors(100));
        fixture.pTree->resize(10, 320);
        fixture.pTree->resize(9, 320);
        const int nBefore = Bar(fixture, Qt::Vertical)->maximum();
        fixture.Load(ManyProcessors(200), { QUuid() });
        QTRY_VERIFY(Bar(fixture, Qt::Vertical)->maximum() > nBefore);
        QVERIFY(!Bar(fixture, Qt::Vertical)->isVisible());
    }

    void theBarsAreLaidOutWhenTheTreeIsShown()
    {
        CTreeFixture fixture(ManyProcessors(100));
        fixture.pTree->hide();
        Bar(fixture, Qt::Vertical)->setGeometry(0, 0, 8, 8);
        fixture.pTree->show();
        QCOMPARE(Bar(fixture, Qt::Vertical)->geometry().bottom(), fixture.pTree->height() - 1);
    }

    void theOverlayBarMovesTheTree()
    {
        CTreeFixture fixture(ManyProcessors(100));
        Bar(fixture, Qt::Vertical)->setValue(64);
        QCOMPARE(fixture.pTree->verticalScrollBar()->value(), 64);
    }
};

PTV_TEST_MAIN(CConstructionTest)
#include "tst_construction.moc"
