#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"
#include "nodes/EnNodeType.h"
#include "tree/TreeAction.h"

#include <QLineEdit>
#include <QTranslator>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }), Group("Empty") },
                { Processor("loose").Expanded(false), Processor("last").Expanded(false) });
}

QStringList OnGui(const QStringList& listCall)
{
    QStringList listText;
    for (const QString& strCall : listCall) {
        listText.append("gui: " + strCall);
    }
    return listText;
}

class CGroupTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        const bool bWanted = qstrcmp(context, "CProcessorTree") == 0 && qstrcmp(sourceText, "Group %1") == 0;
        return bWanted ? QStringLiteral("%1. Gruppe") : QString();
    }
    bool isEmpty() const override
    {
        return false;
    }
};

} // namespace

class CGroupingTest : public QObject
{
    Q_OBJECT

private slots:
    void groupMovesTheSelectedProcessorsIntoANewGroupAndSelectsIt()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) { answers.nNextGroupIndex = 7; });
        fixture.Select({ "gamma", "alpha" });
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.control.CommandsWithThread(),
                 OnGui({ "g_pPrcListControl.AddGroup(\"Group 7\", false)", MoveCall("gamma", "Group 7"),
                         MoveCall("alpha", "Group 7"), SelectCall("Group 7") }));
    }

    void aNewGroupIsOpenAndEmptyAndHasAnIdOfItsOwn()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(ActionGroup);
        fixture.pTree->DealAction(ActionGroup);
        const QList<SProcessorGroupNode> listGroup = fixture.control.Answers().listGroupAdded;
        QCOMPARE(listGroup.size(), 2);
        const SProcessorGroupNode& group = listGroup.first();
        QVERIFY(group.bExpanded);
        QCOMPARE(group.nNodeType, qint32(NodeGroup));
        QVERIFY(group.listProcessor.isEmpty());
        QVERIFY(group.idChief.isNull());
        QVERIFY(group.setAux.isEmpty());
        QVERIFY(!group.idNode.isNull());
        QVERIFY(group.idNode != listGroup.last().idNode);
    }

    void theNumberOfANewGroupIsAskedOnceAndTakenAsItComes_data()
    {
        QTest::addColumn<int>("nNumber");
        QTest::addColumn<QString>("strName");
        QTest::newRow("one") << 1 << "Group 1";
        QTest::newRow("zero") << 0 << "Group 0";
        QTest::newRow("large") << 1234567 << "Group 1234567";
        QTest::newRow("negative") << -3 << "Group -3";
    }
    void theNumberOfANewGroupIsAskedOnceAndTakenAsItComes()
    {
        QFETCH(int, nNumber);
        QFETCH(QString, strName);
        CTreeFixture fixture(Site());
        fixture.control.Set([&](SControlAnswers& answers) { answers.nNextGroupIndex = nNumber; });
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.control.CallCount("GetNextGroupIndex"), 1);
        QCOMPARE(fixture.control.Commands().first(), QString("g_pPrcListControl.AddGroup(\"%1\", false)").arg(strName));
    }

    void theNameOfANewGroupIsInTheUsersLanguage()
    {
        CTreeFixture fixture(Site());
        CGroupTranslator translator;
        QCoreApplication::installTranslator(&translator);
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(ActionGroup);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(fixture.control.Commands().first(), QStringLiteral("g_pPrcListControl.AddGroup(\"1. Gruppe\", false)"));
    }

    void groupPassesOverRowsThatAreNoProcessors()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "Hall", "all" });
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.control.Commands().filter("MoveProcessor"), QStringList{ MoveCall("loose", "Group 1") });
    }

    void groupWithNothingSelectedAddsAnEmptyGroup()
    {
        CTreeFixture fixture(Site(), { ProcessorId("gone") });
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.control.Commands(),
                 (QStringList{ "g_pPrcListControl.AddGroup(\"Group 1\", true)", SelectCall("Group 1") }));
    }

    void groupOpensNoEditorAndChangesNoRow()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const int nRows = fixture.pTree->model()->rowCount(fixture.Root());
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.pTree->model()->rowCount(fixture.Root()), nRows);
        QVERIFY(!fixture.pTree->findChild<QLineEdit*>());
        QCOMPARE(fixture.Selected(), QStringList{ "loose" });
    }

    void afterAGroupingSelectionChangesAreReportedAgain()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(ActionGroup);
        fixture.Clear();
        fixture.Click(fixture.Row("last"));
        QCOMPARE(fixture.control.Commands(), QStringList{ SelectCall("last") });
    }

    void ungroupDissolvesTheSelectedGroupsAndSelectsWhatIsAbove()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Hall", "alpha", "Empty" });
        fixture.pTree->DealAction(ActionUngroup);
        QCOMPARE(fixture.control.CommandsWithThread(),
                 OnGui({ "g_pPrcListControl.DeleteGroup(Hall, false)", "g_pPrcListControl.DeleteGroup(Empty, false)",
                         SelectCall("Stage") }));
    }

    void ungroupOfAnEmptyGroupIsTheSameCall()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Empty" });
        fixture.pTree->DealAction(ActionUngroup);
        QCOMPARE(fixture.control.Commands(), (QStringList{ "g_pPrcListControl.DeleteGroup(Empty, false)", SelectCall("gamma") }));
    }

    void ungroupOfTheFirstGroupSelectsTheRoot()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage" });
        fixture.pTree->DealAction(ActionUngroup);
        QCOMPARE(fixture.control.Commands().last(), SelectCall("{null}"));
    }

    void removeFromGroupMovesOnlyMembersAndLeavesTheSelection()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "gamma", "Stage", "alpha" });
        fixture.pTree->DealAction(ActionRemoveFromGroup);
        QCOMPARE(fixture.control.CommandsWithThread(), OnGui({ MoveCall("gamma", "{null}"), MoveCall("alpha", "{null}") }));
        QCOMPARE(fixture.Selected(), (QStringList{ "loose", "gamma", "Stage", "alpha" }));
    }

    void aProcessorThatWasMovedStaysSelectedAtItsNewPlace()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        fixture.Select({ "alpha" });
        fixture.pTree->DealAction(ActionRemoveFromGroup);
        fixture.Load(Root({ Group("Stage", { Processor("beta") }) }, { Processor("alpha") }), { ProcessorId("alpha") });
        QCOMPARE(fixture.Selected(), QStringList{ "alpha" });
        QCOMPARE(fixture.Row("alpha").parent(), fixture.Root());
    }

    void theNewGroupIsSelectedAfterTheNextRefresh()
    {
        CTreeFixture fixture(Site());
        fixture.ConnectLikeTheView();
        fixture.Select({ "loose" });
        fixture.pTree->DealAction(ActionGroup);
        const QUuid idGroup = fixture.control.Answers().vecDiscoveredSelection.front();
        fixture.control.Set([&](SControlAnswers& answers) {
            answers.nodeDiscovered = Root({ Group("Group 1", { Processor("loose") }).NodeId(idGroup) });
        });
        fixture.ReadStore();
        QCOMPARE(fixture.Selected(), QStringList{ "Group 1" });
    }

    void anUnwillingLibraryIsNotComplainedAbout()
    {
        CTreeFixture fixture(Site());
        fixture.control.Set([](SControlAnswers& answers) { answers.bSelectionAccepted = false; });
        fixture.Select({ "alpha" });
        fixture.pTree->DealAction(ActionUngroup);
        fixture.pTree->DealAction(ActionGroup);
        QCOMPARE(fixture.control.CallCount("PostMessage"), 0);
        QVERIFY2(!QApplication::activeModalWidget(), "no message to the user");
    }

    void informationRowsSweptAlongAreNotMoved()
    {
        CTreeFixture fixture(Root({}, { Processor("one").Expanded(true), Processor("two").Expanded(false) }));
        fixture.Select({ "one" });
        fixture.Click(fixture.Row("two"), Qt::ShiftModifier);
        fixture.Clear();
        fixture.pTree->DealAction(ActionGroup);
        QStringList listMove = fixture.control.Commands().filter("MoveProcessor");
        listMove.sort();
        QCOMPARE(listMove, (QStringList{ MoveCall("one", "Group 1"), MoveCall("two", "Group 1") }));
    }
};

PTV_TEST_MAIN(CGroupingTest)
#include "tst_grouping.moc"
