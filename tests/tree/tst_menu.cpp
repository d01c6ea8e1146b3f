#include "CMenuDriver.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"
#include "interfaces/widgets/CMenu.h"

#include <QAction>
#include <QLineEdit>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }), Group("Yard") },
                { Processor("loose").Expanded(false), Processor("open").Expanded(true) });
}

QAction* Action(const CTreeFixture& fixture, const QString& strText)
{
    for (QAction* const pAction : fixture.pTree->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (pAction->text() == strText) {
            return pAction;
        }
    }
    return nullptr;
}

void Activate(CTreeFixture& fixture, const QStringList& listName)
{
    fixture.control.Set([&](SControlAnswers& answers) {
        for (const QString& strName : listName) {
            answers.setActive.insert(ProcessorId(strName));
        }
    });
}

} // namespace

class CMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void theEntriesFollowFromTheClickedRow_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::addColumn<QString>("strClicked");
        QTest::addColumn<QStringList>("listEntry");
        QTest::newRow("group") << QStringList{ "Stage" } << "Stage" << QStringList{ "Rename", "Ungroup", "Delete" };
        QTest::newRow("two groups") << QStringList{ "Stage", "Hall" } << "Stage" << QStringList{ "Ungroup", "Delete" };
        QTest::newRow("group and processor, on the group")
            << QStringList{ "Stage", "loose" } << "Stage" << QStringList{ "Ungroup", "Delete" };
        QTest::newRow("group and processor, on the processor")
            << QStringList{ "Stage", "loose" } << "loose"
            << QStringList{ "Group", "Move to group: [Stage, Hall, Yard]", "Delete" };
        QTest::newRow("processor") << QStringList{ "loose" } << "loose"
                                   << QStringList{ "Rename", "Group", "Move to group: [Stage, Hall, Yard]", "Delete" };
        QTest::newRow("member") << QStringList{ "alpha" } << "alpha"
                                << QStringList{ "Rename", "Remove from group", "Move to group: [Hall, Yard]", "Delete" };
        QTest::newRow("two members, on one") << QStringList{ "alpha", "gamma" } << "gamma"
                                             << QStringList{ "Remove from group", "Move to group: [Stage, Yard]", "Delete" };
        QTest::newRow("member and loose one, on the member")
            << QStringList{ "alpha", "loose" } << "alpha"
            << QStringList{ "Remove from group", "Move to group: [Hall, Yard]", "Delete" };
        QTest::newRow("member and loose one, on the loose one")
            << QStringList{ "alpha", "loose" } << "loose"
            << QStringList{ "Group", "Move to group: [Stage, Hall, Yard]", "Delete" };
        QTest::newRow("with the root") << QStringList{ "all", "loose" } << "loose"
                                       << QStringList{ "Group", "Move to group: [Stage, Hall, Yard]", "Delete" };
    }
    void theEntriesFollowFromTheClickedRow()
    {
        QFETCH(QStringList, listSelected);
        QFETCH(QString, strClicked);
        QFETCH(QStringList, listEntry);
        CTreeFixture fixture(Site());
        Activate(fixture, { "alpha", "gamma", "loose" });
        fixture.Select(listSelected);
        QCOMPARE(fixture.Menu(fixture.Row(strClicked)), listEntry);
    }

    void theRootAnInformationRowAndTheEmptyAreaHaveNoMenu()
    {
        CTreeFixture fixture(Site());
        QCOMPARE(fixture.Menu(fixture.Root()), QStringList());
        fixture.Select({ "open" });
        QCOMPARE(fixture.Menu(fixture.Info("open")), QStringList());
        const CMenuDriver menuDriver([](QMenu* pMenu) { pMenu->close(); });
        fixture.RightClick(QPoint(100, fixture.pTree->viewport()->height() - 5));
        QCoreApplication::processEvents();
        QVERIFY(!menuDriver.HasActed());
    }

    void aRightClickOnAnUnselectedRowSelectsIt()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage", "Hall" });
        QVERIFY(!fixture.Menu(fixture.Row("loose")).isEmpty());
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
    }

    void aRightClickKeepsASelectionThatHoldsTheRow()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage", "loose" });
        fixture.Menu(fixture.Row("Stage"));
        QCOMPARE(fixture.Selected(), (QStringList{ "Stage", "loose" }));
    }

    void withCtrlOrShiftAnUnselectedRowHasNoMenu_data()
    {
        QTest::addColumn<int>("nModifiers");
        QTest::newRow("Ctrl") << int(Qt::ControlModifier);
        QTest::newRow("Shift") << int(Qt::ShiftModifier);
    }
    void withCtrlOrShiftAnUnselectedRowHasNoMenu()
    {
        QFETCH(int, nModifiers);
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage" });
        QCOMPARE(fixture.Menu(fixture.Row("loose"), Qt::KeyboardModifiers(nModifiers)), QStringList());
        QCOMPARE(fixture.Selected(), QStringList{ "Stage" });
    }

    void aProcessorThatIsNotActiveHasNoRename()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        QCOMPARE(fixture.Menu(fixture.Row("loose")), (QStringList{ "Group", "Move to group: [Stage, Hall, Yard]", "Delete" }));
        QVERIFY(fixture.control.Calls().contains("g_pPrcListControl.IsNodeActive(loose)"));
    }

    void aGroupIsNotAskedWhetherItIsActive()
    {
        CTreeFixture fixture(Root({ Group("Stage") }));
        fixture.Select({ "Stage" });
        QCOMPARE(fixture.Menu(fixture.Row("Stage")), (QStringList{ "Rename", "Ungroup", "Delete" }));
        QCOMPARE(fixture.control.CallCount("IsNodeActive"), 0);
    }

    void withoutAnotherGroupThereIsNoMoveToGroup_data()
    {
        QTest::addColumn<bool>("bGroup");
        QTest::newRow("no group at all") << false;
        QTest::newRow("only its own group") << true;
    }
    void withoutAnotherGroupThereIsNoMoveToGroup()
    {
        QFETCH(bool, bGroup);
        CTreeFixture fixture(bGroup ? Root({ Group("Stage", { Processor("alpha") }) }) : Root({}, { Processor("alpha") }));
        fixture.Select({ "alpha" });
        QCOMPARE(fixture.Menu(fixture.Row("alpha")), (QStringList{ bGroup ? "Remove from group" : "Group", "Delete" }));
    }

    void theMenuComesAnewAtEachOpening()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const QStringList listEntry{ "Group", "Move to group: [Stage, Hall, Yard]", "Delete" };
        QCOMPARE(fixture.Menu(fixture.Row("loose")), listEntry);
        QCOMPARE(fixture.Menu(fixture.Row("loose")), listEntry);
        QVERIFY2(!Action(fixture, "Move to group")->menu(), "the sub-menu has died with its menu");
        QCOMPARE(fixture.pTree->findChildren<QMenu*>().size(), 0);
    }

    void theMenuIsAtLeast180PixelsWideAndItsSubMenu100()
    {
        CTreeFixture fixture(Root({ Group("G") }, { Processor("p").Expanded(false) }));
        fixture.Select({ "p" });
        int nWidth = 0;
        int nSubMinimum = 0;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            nWidth = pMenu->width();
            nSubMinimum = Action(fixture, "Move to group")->menu()->minimumWidth();
            QVERIFY(qobject_cast<CMenu*>(pMenu));
            QCOMPARE(pMenu->parentWidget(), static_cast<QWidget*>(fixture.pTree.data()));
            pMenu->close();
        });
        fixture.RightClick(fixture.At(fixture.Row("p")));
        QCOMPARE(nWidth, 180);
        QCOMPARE(nSubMinimum, 100);
    }

    void theMenuOpensWhereTheMouseIs()
    {
        CTreeFixture fixture(Site());
        const QPoint pos = fixture.At(fixture.Row("Hall"));
        QPoint ptMenu;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            ptMenu = pMenu->pos();
            pMenu->close();
        });
        fixture.RightClick(pos);
        QCOMPARE(ptMenu, fixture.pTree->mapToGlobal(pos));
    }

    void theMenuKeyOpensTheMenuOfTheCurrentRow()
    {
        CTreeFixture fixture(Site());
        fixture.Click(fixture.Row("Hall"));
        QStringList listEntry;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            listEntry = CMenuDriver::Entries(pMenu);
            pMenu->close();
        });
        const QPoint pos = fixture.At(fixture.Row("Hall"));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, fixture.pTree->mapToGlobal(pos));
        QCoreApplication::sendEvent(fixture.pTree.data(), &event);
        QCOMPARE(listEntry, (QStringList{ "Rename", "Ungroup", "Delete" }));
    }

    void deleteIsGreyWhileTheLibraryBlocksIt_data()
    {
        QTest::addColumn<QStringList>("listActive");
        QTest::addColumn<QStringList>("listInUse");
        QTest::addColumn<bool>("bLocked");
        QTest::addColumn<bool>("bEnabled");
        QTest::newRow("free") << QStringList() << QStringList() << false << true;
        QTest::newRow("active only") << QStringList{ "loose" } << QStringList() << false << true;
        QTest::newRow("in use only") << QStringList() << QStringList{ "loose" } << false << true;
        QTest::newRow("active and in use") << QStringList{ "loose" } << QStringList{ "loose" } << false << false;
        QTest::newRow("one active, another in use") << QStringList{ "alpha" } << QStringList{ "loose" } << false << true;
        QTest::newRow("locked") << QStringList() << QStringList() << true << false;
    }
    void deleteIsGreyWhileTheLibraryBlocksIt()
    {
        QFETCH(QStringList, listActive);
        QFETCH(QStringList, listInUse);
        QFETCH(bool, bLocked);
        QFETCH(bool, bEnabled);
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        Activate(fixture, listActive);
        fixture.control.Set([&](SControlAnswers& answers) {
            answers.bListLocked = bLocked;
            answers.vecSelectedProcessors = { ProcessorId("alpha"), ProcessorId("loose") };
            for (const QString& strName : std::as_const(listInUse)) {
                answers.setInUse.insert(ProcessorId(strName));
            }
        });
        fixture.ReadStore();
        QCOMPARE(fixture.Menu(fixture.Row("loose")).last(), QString(bEnabled ? "Delete" : "(Delete)"));
    }

    void theBlockAsksBothQuestionsForEachProcessorUntilTheFirstHit()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) {
            answers.vecSelectedProcessors = { ProcessorId("alpha"), ProcessorId("beta"), ProcessorId("gamma") };
            answers.setActive = { ProcessorId("beta") };
            answers.setInUse = { ProcessorId("beta") };
        });
        fixture.Select({ "Stage" });
        QCOMPARE(fixture.Menu(fixture.Row("Stage")).last(), QStringLiteral("(Delete)"));
        QStringList listCall = fixture.control.Calls();
        listCall = listCall.mid(listCall.indexOf("g_pRuntimeControl.GetSelectedProcessors()") + 1);
        QCOMPARE(listCall,
                 (QStringList{ "g_pPrcListControl.IsNodeActive(alpha)", "g_pRuntimeControl.IsNodeInUse(alpha)",
                               "g_pPrcListControl.IsNodeActive(beta)", "g_pRuntimeControl.IsNodeInUse(beta)" }));
    }

    void onlyDeleteIsEverDisabled()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) { answers.bListLocked = true; });
        fixture.ReadStore();
        Activate(fixture, { "loose" });
        fixture.Select({ "loose" });
        QCOMPARE(fixture.Menu(fixture.Row("loose")),
                 (QStringList{ "Rename", "Group", "Move to group: [Stage, Hall, Yard]", "(Delete)" }));
    }

    void theEntryMoveToGroupDoesNothingItself()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(4);
        QCOMPARE(fixture.control.Calls(), QStringList());
    }

    void numbersThatAreNoActionDoNothing_data()
    {
        QTest::addColumn<int>("nAction");
        QTest::newRow("6") << 6;
        QTest::newRow("-1") << -1;
        QTest::newRow("1000") << 1000;
    }
    void numbersThatAreNoActionDoNothing()
    {
        QFETCH(int, nAction);
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(nAction);
        QCOMPARE(fixture.control.Calls(), QStringList());
    }

    void anEntryOfTheSubMenuMovesTheSelectionAndOpensTheGroup()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha", "Stage", "loose", "gamma" });
        fixture.pTree->collapse(fixture.Row("Hall"));
        fixture.Clear();
        fixture.ChooseInMenu(fixture.Row("loose"), { "Move to group", "Hall" });
        QCOMPARE(fixture.control.CommandsWithThread(),
                 (QStringList{ "gui: " + MoveCall("alpha", "Hall"), "gui: " + MoveCall("loose", "Hall"),
                               "gui: " + MoveCall("gamma", "Hall"), "gui: g_pPrcListControl.SetExpanded(Hall, true)" }));
    }

    void anAmpersandInAGroupsNameIsShown()
    {
        CTreeFixture fixture(Root({ Group("R&D"), Group("A & B") }, { Processor("loose").Expanded(false) }));
        fixture.Select({ "loose" });
        QStringList listShown;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            for (const QAction* const pAction : Action(fixture, "Move to group")->menu()->actions()) {
                listShown.append(pAction->iconText()); // the text without the marks of mnemonics
            }
            CMenuDriver::Choose(pMenu, { "Move to group", "R&&D" });
        });
        fixture.RightClick(fixture.At(fixture.Row("loose")));
        QCOMPARE(listShown, (QStringList{ "R&D", "A & B" }));
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("loose", "R&D") });
    }

    void aGroupThatHasGoneWhileTheMenuWasOpenOpensTheRoot()
    {
        CTreeFixture fixture(Site());
        fixture.pTree->collapse(fixture.Root());
        fixture.pTree->expand(fixture.Root());
        fixture.Select({ "loose" });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            fixture.Load(Root({ Group("Hall") }, { Processor("loose").Expanded(false) }), { ProcessorId("loose") });
            CMenuDriver::Choose(pMenu, { "Move to group", "Yard" });
        });
        fixture.RightClick(fixture.At(fixture.Row("loose")));
        QCOMPARE(fixture.control.Commands(), QStringList{ MoveCall("loose", "Yard") });
        QVERIFY(fixture.pTree->isExpanded(fixture.Root()));
    }

    void eachEntryRunsItsCommand_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<QString>("strEntry");
        QTest::addColumn<QString>("strCall");
        QTest::newRow("Ungroup") << "Stage"
                                 << "Ungroup"
                                 << "g_pPrcListControl.DeleteGroup(Stage, false)";
        QTest::newRow("Group") << "loose"
                               << "Group"
                               << "g_pPrcListControl.AddGroup(\"Group 1\", false)";
        QTest::newRow("Remove from group") << "alpha"
                                           << "Remove from group" << MoveCall("alpha", "{null}");
        QTest::newRow("Delete") << "Yard"
                                << "Delete"
                                << "g_pRuntimeControl.SetBusy(true)";
    }
    void eachEntryRunsItsCommand()
    {
        QFETCH(QString, strRow);
        QFETCH(QString, strEntry);
        QFETCH(QString, strCall);
        CTreeFixture fixture(Site());
        fixture.Select({ strRow });
        fixture.ChooseInMenu(fixture.Row(strRow), { strEntry });
        QVERIFY(!fixture.control.Commands().isEmpty());
        QCOMPARE(fixture.control.Commands().first(), strCall);
        QTRY_VERIFY(strEntry != "Delete" || fixture.control.Commands().contains("g_pRuntimeControl.SetBusy(false)"));
    }

    void theEntryRenameOpensTheEditor()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage" });
        fixture.ChooseInMenu(fixture.Row("Stage"), { "Rename" });
        const auto* const pEditor = fixture.pTree->findChild<QLineEdit*>();
        QVERIFY(pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("Stage"));
    }

    void aMenuThatStaysOpenOverARebuildActsOnTheSameNodes()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha", "loose" });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            fixture.Load(Site(), { ProcessorId("alpha"), ProcessorId("loose") });
            CMenuDriver::Choose(pMenu, { "Group" });
        });
        fixture.RightClick(fixture.At(fixture.Row("loose")));
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pPrcListControl.AddGroup(\"Group 1\", false)", MoveCall("alpha", "Group 1"),
                               MoveCall("loose", "Group 1"), SelectCall("Group 1") }));
    }

    void aNodeThatHasGoneWhileItsMenuWasOpenIsNotTouched()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "alpha", "loose" });
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            fixture.Load(Root({ Group("Stage", { Processor("alpha") }) }), { ProcessorId("alpha"), ProcessorId("loose") });
            CMenuDriver::Choose(pMenu, { "Move to group", "Stage" });
        });
        fixture.RightClick(fixture.At(fixture.Row("loose")));
        QCOMPARE(fixture.control.Commands().filter("MoveProcessor"), QStringList{ MoveCall("alpha", "Stage") });
    }

    void theTreeMayGoWhileItsMenuIsOpen()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const CMenuDriver menuDriver([&](QMenu*) { fixture.pTree.reset(); });
        fixture.RightClick(fixture.At(fixture.Row("loose")));
        QVERIFY(menuDriver.HasActed());
        QVERIFY(!fixture.pTree);
    }
};

PTV_TEST_MAIN(CMenuTest)
#include "tst_menu.moc"
