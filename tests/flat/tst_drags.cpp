#include "Flatness.h"
#include "TestMain.h"
#include "fixtures/CDragRun.h"

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false) }), Group("Hall") },
                { Processor("loose").Expanded(false), Processor("other").Expanded(false) });
}

/// Drags again and again through QDrag::exec() and says what has grown.
QString FindGrowth(const std::function<QList<CDragRun::FnStep>(CTreeFixture&, CDragRun&)>& fnSteps)
{
    CTreeFixture fixture(Site());
    return Flatness::FindGrowth(Flatness::CountRounds(1000, 100), [&] {
        CDragRun drag(fixture);
        drag.Run(fixture.Row("loose"), fnSteps(fixture, drag));
        QVERIFY(drag.HasRun());
        QVERIFY(!drag.Drag() || QTest::qWaitFor([&] { return !drag.Drag(); }, nPatience));
        fixture.Clear();
    });
}

} // namespace

/// What drags leave behind, on a platform that runs them.
class CDragsTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingGrowsWithDragsThatAreDropped()
    {
        const auto steps = [](CTreeFixture& fixture, CDragRun& drag) -> QList<CDragRun::FnStep> {
            return { [&] { drag.MoveOnto(fixture.Row("Hall")); }, [&] { drag.Release(); } };
        };
        QCOMPARE(FindGrowth(steps), QString());
    }

    void nothingGrowsWithDragsThatAreCancelled()
    {
        QCOMPARE(FindGrowth([](CTreeFixture&, CDragRun&) { return QList<CDragRun::FnStep>(); }), QString());
    }
};

PTV_TEST_MAIN(CDragsTest)
#include "tst_drags.moc"
