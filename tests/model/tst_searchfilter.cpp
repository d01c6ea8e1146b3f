#include "SModelRig.h"
#include "TestMain.h"
#include "TreeText.h"

namespace {

SProcessorAllNode Site()
{
    return Root(
        { Group("Stage left",
                { Processor("Mixer").Type(12, "KX-4").Ip("10.0.0.1"), Processor("Player").Type(13, "PL-2").Ip("10.0.0.2") })
              .Expanded(false),
          Group("Hall", { Processor("Amp").Type(14, "PW-900").Ip("192.168.1.7") }), Group("Spare mix") },
        { Processor("Gate").Type(15, "GX-1").Ip("10.0.7.1"), Processor("Monitor").Type(12, "KX-4").Ip("172.16.0.9") });
}

const char* const szAllRows
    = "all, group Stage left, processor Mixer, processor Player, group Hall, processor Amp, group Spare mix, "
      "processor Gate, processor Monitor";

} // namespace

/// The search box's filter on the rows.
class CSearchFilterTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsThatMatchAreShown_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<QString>("strShown");
        QTest::newRow("empty") << "" << szAllRows;
        QTest::newRow("null") << QString() << szAllRows;
        QTest::newRow("nothing") << "violin"
                                 << "all";
        QTest::newRow("address of one member") << "10.0.0.2"
                                               << "all, group Stage left, processor Player";
        QTest::newRow("part of addresses") << "10.0"
                                           << "all, group Stage left, processor Mixer, processor Player, processor Gate";
        QTest::newRow("name of a member") << "amp"
                                          << "all, group Hall, processor Amp";
        QTest::newRow("name of a group") << "LEFT"
                                         << "all, group Stage left, processor Mixer, processor Player";
        QTest::newRow("group of another case and a processor")
            << "g"
            << "all, group Stage left, processor Mixer, processor Player, processor Gate";
        QTest::newRow("name of an empty group, and a member") << "mix"
                                                              << "all, group Stage left, processor Mixer, group Spare mix";
        QTest::newRow("name of an empty group only") << "spare"
                                                     << "all, group Spare mix";
        QTest::newRow("type") << "kx-4"
                              << "all, group Stage left, processor Mixer, processor Monitor";
        QTest::newRow("processor in no group") << "monitor"
                                               << "all, processor Monitor";
        QTest::newRow("the root's own name is no hit") << "All processors"
                                                       << "all";
    }

    void rowsThatMatchAreShown()
    {
        QFETCH(QString, strText);
        SModelRig rig(Site());
        rig.Rebuild();
        rig.pModel->SetSearchText(strText);
        QTEST(rig.ShownRows(), "strShown");
    }

    void anEmptyTextShowsAllRowsAgain()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        for (const char* pText : { "violin", "amp", "10.0" }) {
            rig.pModel->SetSearchText(pText);
            rig.pModel->SetSearchText(QString());
            QCOMPARE(rig.ShownRows(), QString(szAllRows));
        }
    }

    void eachSearchStartsAnew()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.pModel->SetSearchText("violin");
        rig.pModel->SetSearchText("amp");
        QCOMPARE(rig.ShownRows(), QString("all, group Hall, processor Amp"));
        rig.pModel->SetSearchText("gate");
        QCOMPARE(rig.ShownRows(), QString("all, processor Gate"));
    }

    void aSearchOpensAndFoldsNothing()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        for (const char* pText : { "10.0.0.2", "mixer", "pw-900", "violin", "" }) {
            rig.pModel->SetSearchText(pText);
            QVERIFY(!rig.pTree->isExpanded(rig.Index(GroupId("Stage left"))));
            QVERIFY(rig.pTree->isExpanded(rig.Index(GroupId("Hall"))));
            QVERIFY(rig.pTree->isExpanded(rig.Index(ProcessorId("Amp"))));
            QVERIFY(rig.pTree->isExpanded(rig.Index(QUuid())));
        }
    }

    void aSearchChangesNoRecordAndTellsNobody()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.pModel->SetSearchText("10.0");
        SProcessorAllNode node;
        g_pProcessorTreeData->GetCurrentTree(node);
        QVERIFY(node.listGroup == Site().listGroup);
        QVERIFY(node.listProcessor == Site().listProcessor);
        QCOMPARE(rig.control.Calls(), QStringList());
    }

    void informationRowsAreNotHidden()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.pModel->SetSearchText("violin");
        for (const QUuid& id : { ProcessorId("Mixer"), ProcessorId("Gate") }) {
            QVERIFY(!rig.pTree->isRowHidden(0, rig.Index(id)));
        }
    }

    void aRebuildEndsTheFilter()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.pModel->SetSearchText("amp");
        rig.Rebuild();
        QCOMPARE(rig.ShownRows(), QString(szAllRows));
        rig.pModel->SetSearchText("amp");
        QCOMPARE(rig.ShownRows(), QString("all, group Hall, processor Amp"));
    }

    void aSearchBeforeTheFirstRebuildHidesNothing()
    {
        SModelRig rig(Site());
        rig.pModel->SetSearchText("violin");
        QCOMPARE(rig.ShownRows(), QString(szAllRows));
    }

    void aNodeThatHasNoRowYetHidesNothing()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.Change(Root({ Group("New", { Processor("n") }), Group("Hall", { Processor("Amp") }) }, { Processor("m") }));
        rig.pModel->SetSearchText("violin");
        QVERIFY(!rig.pTree->isRowHidden(0, QModelIndex()));
        QVERIFY(rig.pTree->isRowHidden(1, rig.pModel->GetRootIndex()));
        QVERIFY(!rig.pTree->isRowHidden(0, rig.pModel->GetRootIndex()));
    }

    void aSearchWorksOnTheCurrentPane()
    {
        SModelRig rig(Site(), Root({ Group("Lab", { Processor("s") }) }, { Processor("Mixer two") }));
        rig.ShowPane(true);
        rig.Rebuild();
        rig.pModel->SetSearchText("mixer");
        QCOMPARE(rig.ShownRows(), QString("all, processor Mixer two"));
    }

    void aNodeWithoutAnIdNeverHidesTheRoot()
    {
        SModelRig rig(Site());
        rig.Rebuild();
        rig.Change(Root({ Group("Stage").NodeId(QUuid()) }, { Processor("a").NodeId(QUuid()) }));
        rig.pModel->SetSearchText("violin");
        QVERIFY(!rig.pTree->isRowHidden(0, QModelIndex()));
        rig.Rebuild();
        rig.pModel->SetSearchText("violin");
        QVERIFY(!rig.pTree->isRowHidden(0, QModelIndex()));
    }
};

PTV_TEST_MAIN(CSearchFilterTest)

#include "tst_searchfilter.moc"
