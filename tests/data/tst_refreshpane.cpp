#include "CFilledStore.h"
#include "CRefreshFixture.h"
#include "TestMain.h"

/// Refreshes that meet a pane, a selection or an expansion that the GUI thread has changed.
class CRefreshPaneTest : public QObject
{
    Q_OBJECT

private slots:
    void aNodeOfTheOtherPaneChangesInSilence()
    {
        CRefreshFixture fixture;
        const auto fnOnline
            = [](SControlAnswers& answers) { answers.nodeSimulator.listGroup[0].listProcessor[0].bOnline = true; };
        QCOMPARE(fixture.RefreshAfter(fnOnline), listNothing);
        QCOMPARE(TreeOfPane(fixture.store, true).listGroup.at(0).listProcessor.at(0).bOnline, true);
    }

    void theNextRefreshAfterAPaneSwitchSaysNothingOfOldChanges()
    {
        CRefreshFixture fixture;
        fixture.RefreshAfter([](SControlAnswers& answers) { answers.nodeSimulator.listProcessor.clear(); });
        fixture.store.SetSimulatorPane(true);
        QCOMPARE(fixture.RefreshAfter([](SControlAnswers& answers) { answers.bSimulatorPane = true; }), listNothing);
    }

    void thePaneOfTheLibraryOverwritesTheStoresInSilence()
    {
        CRefreshFixture fixture;
        QCOMPARE(fixture.RefreshAfter([](SControlAnswers& answers) { answers.bSimulatorPane = true; }), listNothing);
        QCOMPARE(fixture.store.IsSimulatorPane(), true);
        fixture.store.SetSimulatorPane(false);
        QCOMPARE(fixture.Refresh(), listNothing);
        QCOMPARE(fixture.store.IsSimulatorPane(), true);
    }

    void aPaneThatChangesWithItsTreeIsComparedAsTheNewOne_data()
    {
        QTest::addColumn<bool>("bFromSimulator");
        QTest::addColumn<bool>("bSimulatorChanges");
        QTest::addColumn<bool>("bSaid");
        QTest::newRow("to Simulator, whose nodes change") << false << true << true;
        QTest::newRow("to Simulator, the other's nodes change") << false << false << false;
        QTest::newRow("to Discovered, whose nodes change") << true << false << true;
        QTest::newRow("to Discovered, the other's nodes change") << true << true << false;
    }

    void aPaneThatChangesWithItsTreeIsComparedAsTheNewOne()
    {
        QFETCH(bool, bFromSimulator);
        QFETCH(bool, bSimulatorChanges);
        QFETCH(bool, bSaid);
        CRefreshFixture fixture;
        fixture.RefreshAfter([=](SControlAnswers& answers) { answers.bSimulatorPane = bFromSimulator; });
        const auto fnSwitch = [=](SControlAnswers& answers) {
            answers.bSimulatorPane = !bFromSimulator;
            answers.Tree(bSimulatorChanges).listProcessor.clear();
            answers.Selection(bSimulatorChanges).clear();
        };
        QCOMPARE(fixture.RefreshAfter(fnSwitch), bSaid ? listNodeInfo + listSelection : listNothing);
    }

    void anExpansionThatTheStoreKnowsIsNoChange()
    {
        CRefreshFixture fixture;
        for (const QUuid& id : { QUuid(), GroupId("Hall"), ProcessorId("b"), ProcessorId("e") }) {
            fixture.store.SetExpanded(id, false);
            QCOMPARE(fixture.RefreshAfter([&id](SControlAnswers& answers) { answers.SetExpanded(id, false); }), listNothing);
            QCOMPARE(fixture.RefreshAfter([&id](SControlAnswers& answers) { answers.SetExpanded(id, true); }), listNodeInfo);
        }
    }

    void anExpansionThatOnlyTheStoreKnowsIsTakenBack()
    {
        CRefreshFixture fixture;
        fixture.store.SetExpanded(ProcessorId("b"), false);
        QCOMPARE(fixture.Refresh(), listNodeInfo);
        QCOMPARE(fixture.store.GetProcessor(ProcessorId("b")).bExpanded, true);
    }

    void aSelectionThatOnlyTheStoreKnowsIsTakenBack()
    {
        CRefreshFixture fixture;
        const std::vector<QUuid> vecLibrary = fixture.store.GetSelectedNodes();
        fixture.store.SetSelectedNodes({ ProcessorId("e") });
        QCOMPARE(fixture.Refresh(), listSelection);
        QCOMPARE(fixture.store.GetSelectedNodes(), vecLibrary);
    }
};

PTV_TEST_MAIN_CORE(CRefreshPaneTest)

#include "tst_refreshpane.moc"
