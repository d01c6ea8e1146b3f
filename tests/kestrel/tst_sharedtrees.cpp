#include "CWindowFixture.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "journal/recording/CJournalMask.h"
#include "journal/recording/CTreeReading.h"

namespace {

/// Readings of both panes, as the recording takes them.
class CReadings
{
public:
    /// How many records were compared for one more reading of each.
    quint64 Take()
    {
        const quint64 nBefore = discovered.GetComparisons() + simulators.GetComparisons();
        SProcessorAllNode node;
        g_pPrcListControl->GetDiscoveredTree(node);
        discovered.Take(node, mask);
        SProcessorAllNode nodeSimulators;
        g_pPrcListControl->GetSimulatorTree(nodeSimulators);
        simulators.Take(nodeSimulators, mask);
        return discovered.GetComparisons() + simulators.GetComparisons() - nBefore;
    }

private:
    CJournalMask mask{ false };
    CTreeReading discovered;
    CTreeReading simulators;
};

} // namespace

/// What the recording of trees costs with the control library that Kestrel has.
class CSharedTreesTest : public QObject
{
    Q_OBJECT

private slots:
    void aListThatHasNotChangedIsNotCompared()
    {
        const CWindowFixture scene;
        for (int n = 0; n < 200; ++n) {
            CWindowFixture::AddGroup(QString("Group %1").arg(n));
        }
        CReadings readings;
        readings.Take();
        QCOMPARE(readings.Take(), quint64(0));
        QCOMPARE(readings.Take(), quint64(0));

        CWindowFixture::AddGroup("One more");
        QVERIFY(readings.Take() > 0);
        QCOMPARE(readings.Take(), quint64(0));
    }
};

PTV_TEST_MAIN(CSharedTreesTest)
#include "tst_sharedtrees.moc"
