#include "Builders.h"
#include "CHandClock.h"
#include "CNameRegistry.h"
#include "CorvidControl/faults/CReadingFaults.h"
#include "CorvidControl/faults/CarriedValues.h"
#include "TestMain.h"

#include <QStringList>

using namespace std::chrono_literals;

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Online().Primary(), Processor("beta") }) }, { Processor("loose") });
}

bool IsSame(const SProcessorAllNode& node, const SProcessorAllNode& other)
{
    return node.listGroup == other.listGroup && node.listProcessor == other.listProcessor;
}

const SProcessorNode& Alpha(const SProcessorAllNode& node)
{
    return node.listGroup.constFirst().listProcessor.constFirst();
}

} // namespace

/// Trees that are read wrong: values that flicker, ids that collide.
class CReadingFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutAFaultAReadingSharesTheListsOfTheTree()
    {
        CReadingFaults faults(clock);
        const SProcessorAllNode node = Site();
        const SProcessorAllNode nodeRead = faults.Distort(node);
        QVERIFY(nodeRead.listGroup.isSharedWith(node.listGroup));
        QVERIFY(nodeRead.listProcessor.isSharedWith(node.listProcessor));
    }

    void everyOtherReadingIsWrongAndThenAllAreTrue()
    {
        CReadingFaults faults(clock);
        const SProcessorAllNode node = Site();
        faults.Flicker(ProcessorId("alpha"), "online", 5);
        QString strRead;
        for (int n = 0; n < 8; ++n) {
            strRead += Alpha(faults.Distort(node)).bOnline ? "+" : "-";
        }
        QCOMPARE(strRead, QString("-+-+-+++"));
        QVERIFY(faults.Distort(node).listGroup.isSharedWith(node.listGroup));
        QVERIFY(Alpha(node).bOnline);
    }

    void aTreeWithoutTheNodeIsNoReadingOfIt()
    {
        CReadingFaults faults(clock);
        const SProcessorAllNode other = Root({}, { Processor("sim") });
        faults.Flicker(ProcessorId("alpha"), "online", 1);
        QVERIFY(IsSame(faults.Distort(other), other));
        QVERIFY(!Alpha(faults.Distort(Site())).bOnline);
        QVERIFY(Alpha(faults.Distort(Site())).bOnline);
    }

    void eachValueAloneIsAnotherThanItWas_data()
    {
        QTest::addColumn<QString>("strName");
        for (const QString& strName : CarriedValues::GetNames()) {
            QTest::newRow(qPrintable(strName)) << strName;
        }
        QTest::newRow("all") << QString();
    }

    void eachValueAloneIsAnotherThanItWas()
    {
        QFETCH(QString, strName);
        CReadingFaults faults(clock);
        faults.Flicker(ProcessorId("alpha"), strName, 1);
        const SProcessorNode before = Alpha(Site());
        const SProcessorNode read = Alpha(faults.Distort(Site()));
        const auto isMeant = [&](const char* szName) { return strName.isEmpty() || strName == szName; };
        QCOMPARE(read.idAux != before.idAux, isMeant("aux"));
        QCOMPARE(read.nPortA != before.nPortA, isMeant("aux"));
        QCOMPARE(read.bExpanded != before.bExpanded, isMeant("expanded"));
        QCOMPARE(read.strName != before.strName, isMeant("name"));
        QCOMPARE(read.bOnline != before.bOnline, isMeant("online"));
        QCOMPARE(read.nFailover != before.nFailover, isMeant("role"));
        QCOMPARE(read.idNode, before.idNode);
    }

    void aGroupFlickersInWhatItHas()
    {
        CReadingFaults faults(clock);
        faults.Flicker(GroupId("Stage"), {}, 1);
        const SProcessorGroupNode before = Site().listGroup.constFirst();
        const SProcessorGroupNode read = faults.Distort(Site()).listGroup.constFirst();
        QVERIFY(read.setAux != before.setAux);
        QVERIFY(read.bExpanded != before.bExpanded);
        QVERIFY(read.strName != before.strName);
        QCOMPARE(read.listProcessor, before.listProcessor);
        QVERIFY(CarriedValues::IsOfGroup("aux") && CarriedValues::IsOfGroup(""));
        QVERIFY(!CarriedValues::IsOfGroup("online") && !CarriedValues::IsOfGroup("role"));
    }

    void twoNodesHaveOneIdForAWhile()
    {
        CReadingFaults faults(clock);
        faults.Collide(ProcessorId("alpha"), GroupId("Stage"), 2s);
        faults.Collide(ProcessorId("loose"), ProcessorId("beta"), 3s);
        const SProcessorAllNode read = faults.Distort(Site());
        QCOMPARE(Alpha(read).idNode, GroupId("Stage"));
        QCOMPARE(read.listGroup.constFirst().idNode, GroupId("Stage"));
        QCOMPARE(read.listProcessor.constFirst().idNode, ProcessorId("beta"));
        clock.Turn(2s);
        QCOMPARE(Alpha(faults.Distort(Site())).idNode, ProcessorId("alpha"));
        QCOMPARE(faults.Distort(Site()).listProcessor.constFirst().idNode, ProcessorId("beta"));
        clock.Turn(1s);
        QVERIFY(IsSame(faults.Distort(Site()), Site()));
    }

    void aNewFaultOfANodeTakesThePlaceOfTheOldOne()
    {
        CReadingFaults faults(clock);
        faults.Flicker(ProcessorId("alpha"), "online", 1000);
        faults.Collide(ProcessorId("alpha"), ProcessorId("beta"), 1h);
        QVERIFY(!IsSame(faults.Distort(Site()), Site()));
        faults.Flicker(ProcessorId("alpha"), "online", 0);
        faults.Collide(ProcessorId("alpha"), ProcessorId("beta"), 0s);
        QVERIFY(IsSame(faults.Distort(Site()), Site()));
    }

    void aNodeFlickersThoughItsIdCollides()
    {
        CReadingFaults faults(clock);
        faults.Collide(ProcessorId("alpha"), ProcessorId("beta"), 1s);
        faults.Flicker(ProcessorId("alpha"), "online", 1);
        const SProcessorNode read = Alpha(faults.Distort(Site()));
        QCOMPARE(read.idNode, ProcessorId("beta"));
        QVERIFY(!read.bOnline);
    }

private:
    CHandClock clock;
};

PTV_TEST_MAIN_CORE(CReadingFaultsTest)
#include "tst_readingfaults.moc"
