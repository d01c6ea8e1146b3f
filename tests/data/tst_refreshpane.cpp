#include "CFilledStore.h"
#include "SRefreshRig.h"
#include "TestMain.h"

/// Refreshes that meet a pane, a selection or an expansion that the GUI thread has changed.
class CRefreshPaneTest : public QObject
{
    Q_OBJECT

private slots:
    void aNodeOfTheOtherPaneChangesInSilence()
    {
        SRefreshRig rig;
        const auto fnOnline
            = [](SControlAnswers& answers) { answers.nodeSimulator.listGroup[0].listProcessor[0].bOnline = true; };
        QCOMPARE(rig.RefreshAfter(fnOnline), NOTHING);
        QCOMPARE(TreeOfPane(rig.store, true).listGroup.at(0).listProcessor.at(0).bOnline, true);
    }

    void theNextRefreshAfterAPaneSwitchSaysNothingOfOldChanges()
    {
        SRefreshRig rig;
        rig.RefreshAfter([](SControlAnswers& answers) { answers.nodeSimulator.listProcessor.clear(); });
        rig.store.SetSimulatorPane(true);
        QCOMPARE(rig.RefreshAfter([](SControlAnswers& answers) { answers.bSimulatorPane = true; }), NOTHING);
    }

    void thePaneOfTheLibraryOverwritesTheStoresInSilence()
    {
        SRefreshRig rig;
        QCOMPARE(rig.RefreshAfter([](SControlAnswers& answers) { answers.bSimulatorPane = true; }), NOTHING);
        QCOMPARE(rig.store.IsSimulatorPane(), true);
        rig.store.SetSimulatorPane(false);
        QCOMPARE(rig.Refresh(), NOTHING);
        QCOMPARE(rig.store.IsSimulatorPane(), true);
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
        SRefreshRig rig;
        rig.RefreshAfter([=](SControlAnswers& answers) { answers.bSimulatorPane = bFromSimulator; });
        const auto fnSwitch = [=](SControlAnswers& answers) {
            answers.bSimulatorPane = !bFromSimulator;
            answers.Tree(bSimulatorChanges).listProcessor.clear();
            answers.Selection(bSimulatorChanges).clear();
        };
        QCOMPARE(rig.RefreshAfter(fnSwitch), bSaid ? listNodeInfo + listSelection : NOTHING);
    }

    void anExpansionThatTheStoreKnowsIsNoChange()
    {
        SRefreshRig rig;
        for (const QUuid& id : { QUuid(), GroupId("Hall"), ProcessorId("b"), ProcessorId("e") }) {
            rig.store.SetExpanded(id, false);
            QCOMPARE(rig.RefreshAfter([&id](SControlAnswers& answers) { answers.SetExpanded(id, false); }), NOTHING);
            QCOMPARE(rig.RefreshAfter([&id](SControlAnswers& answers) { answers.SetExpanded(id, true); }), listNodeInfo);
        }
    }

    void anExpansionThatOnlyTheStoreKnowsIsTakenBack()
    {
        SRefreshRig rig;
        rig.store.SetExpanded(ProcessorId("b"), false);
        QCOMPARE(rig.Refresh(), listNodeInfo);
        QCOMPARE(rig.store.GetProcessor(ProcessorId("b")).bExpanded, true);
    }

    void aSelectionThatOnlyTheStoreKnowsIsTakenBack()
    {
        SRefreshRig rig;
        const std::vector<QUuid> vecLibrary = rig.store.GetSelectedNodes();
        rig.store.SetSelectedNodes({ ProcessorId("e") });
        QCOMPARE(rig.Refresh(), listSelection);
        QCOMPARE(rig.store.GetSelectedNodes(), vecLibrary);
    }
};

PTV_TEST_MAIN_CORE(CRefreshPaneTest)

#include "tst_refreshpane.moc"
