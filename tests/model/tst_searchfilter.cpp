#include "CModelFixture.h"
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
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.pModel->SetSearchText(strText);
        QTEST(fixture.ShownRows(), "strShown");
    }

    void anEmptyTextShowsAllRowsAgain()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        for (const char* pText : { "violin", "amp", "10.0" }) {
            fixture.pModel->SetSearchText(pText);
            fixture.pModel->SetSearchText(QString());
            QCOMPARE(fixture.ShownRows(), QString(szAllRows));
        }
    }

    void eachSearchStartsAnew()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.pModel->SetSearchText("violin");
        fixture.pModel->SetSearchText("amp");
        QCOMPARE(fixture.ShownRows(), QString("all, group Hall, processor Amp"));
        fixture.pModel->SetSearchText("gate");
        QCOMPARE(fixture.ShownRows(), QString("all, processor Gate"));
    }

    void aSearchOpensAndFoldsNothing()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        for (const char* pText : { "10.0.0.2", "mixer", "pw-900", "violin", "" }) {
            fixture.pModel->SetSearchText(pText);
            QVERIFY(!fixture.pTree->isExpanded(fixture.Index(GroupId("Stage left"))));
            QVERIFY(fixture.pTree->isExpanded(fixture.Index(GroupId("Hall"))));
            QVERIFY(fixture.pTree->isExpanded(fixture.Index(ProcessorId("Amp"))));
            QVERIFY(fixture.pTree->isExpanded(fixture.Index(QUuid())));
        }
    }

    void aSearchChangesNoRecordAndTellsNobody()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.pModel->SetSearchText("10.0");
        SProcessorAllNode node;
        g_pProcessorTreeData->GetCurrentTree(node);
        QVERIFY(node.listGroup == Site().listGroup);
        QVERIFY(node.listProcessor == Site().listProcessor);
        QCOMPARE(fixture.control.Calls(), QStringList());
    }

    void informationRowsAreNotHidden()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.pModel->SetSearchText("violin");
        for (const QUuid& id : { ProcessorId("Mixer"), ProcessorId("Gate") }) {
            QVERIFY(!fixture.pTree->isRowHidden(0, fixture.Index(id)));
        }
    }

    void aRebuildEndsTheFilter()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.pModel->SetSearchText("amp");
        fixture.Rebuild();
        QCOMPARE(fixture.ShownRows(), QString(szAllRows));
        fixture.pModel->SetSearchText("amp");
        QCOMPARE(fixture.ShownRows(), QString("all, group Hall, processor Amp"));
    }

    void aSearchBeforeTheFirstRebuildHidesNothing()
    {
        CModelFixture fixture(Site());
        fixture.pModel->SetSearchText("violin");
        QCOMPARE(fixture.ShownRows(), QString(szAllRows));
    }

    void aNodeThatHasNoRowYetHidesNothing()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.Show(Root({ Group("New", { Processor("n") }), Group("Hall", { Processor("Amp") }) }, { Processor("m") }));
        fixture.pModel->SetSearchText("violin");
        QVERIFY(!fixture.pTree->isRowHidden(0, QModelIndex()));
        QVERIFY(fixture.pTree->isRowHidden(1, fixture.pModel->GetRootIndex()));
        QVERIFY(!fixture.pTree->isRowHidden(0, fixture.pModel->GetRootIndex()));
    }

    void aSearchWorksOnTheCurrentPane()
    {
        CModelFixture fixture(Site(), Root({ Group("Lab", { Processor("s") }) }, { Processor("Mixer two") }));
        fixture.SetSimulatorPane(true);
        fixture.Rebuild();
        fixture.pModel->SetSearchText("mixer");
        QCOMPARE(fixture.ShownRows(), QString("all, processor Mixer two"));
    }

    void aNodeWithoutAnIdNeverHidesTheRoot()
    {
        CModelFixture fixture(Site());
        fixture.Rebuild();
        fixture.Show(Root({ Group("Stage").NodeId(QUuid()) }, { Processor("a").NodeId(QUuid()) }));
        fixture.pModel->SetSearchText("violin");
        QVERIFY(!fixture.pTree->isRowHidden(0, QModelIndex()));
        fixture.Rebuild();
        fixture.pModel->SetSearchText("violin");
        QVERIFY(!fixture.pTree->isRowHidden(0, QModelIndex()));
    }
};

PTV_TEST_MAIN(CSearchFilterTest)

#include "tst_searchfilter.moc"
