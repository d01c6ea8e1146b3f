#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/day/CDayGenerator.h"
#include "CorvidControl/day/ScenarioFaults.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"

#include <atomic>

namespace {

SProcessorAllNode BuildSite()
{
    QList<SProcessorNode> listProcessor;
    for (int n = 0; n < 20; ++n) {
        listProcessor.append(
            Processor(QStringLiteral("p%1").arg(n)).Online(n % 10 != 0).Project(QStringLiteral("P%1").arg(n % 2)));
    }
    listProcessor[1].nFailover = 1;
    listProcessor[3].nFailover = 2;
    return Root({ Group("Stage", listProcessor.mid(0, 10)) }, listProcessor.mid(10));
}

QStringList BuildDay(quint32 nSeed, const SProcessorAllNode& node, int nSteps, double dPace = 1.0)
{
    CNodeTree tree;
    tree.SetRoot(node);
    CDayGenerator day(nSeed, dPace);
    QStringList listStep;
    for (int n = 0; n < nSteps; ++n) {
        const SScenarioStep step = day.GetNext(tree);
        listStep.append(QStringLiteral("%1 %2 %3").arg(step.nAt).arg(step.strDo, step.GetText("node")));
    }
    return listStep;
}

} // namespace

/// The day without a scenario.
class CQuietDayTest : public QObject
{
    Q_OBJECT

private slots:
    void theSameSeedGivesTheSameDay()
    {
        QCOMPARE(BuildDay(7, BuildSite(), 200), BuildDay(7, BuildSite(), 200));
        QCOMPARE(BuildDay(7, BuildSite(), 1).at(0).section(' ', 0, 1), QString("3221 online")); // on every machine
    }

    void anotherSeedGivesAnotherDay()
    {
        QVERIFY(BuildDay(7, BuildSite(), 20) != BuildDay(8, BuildSite(), 20));
    }

    void allThatADeviceCanDoHappensInADay()
    {
        const QString strDay = BuildDay(1, BuildSite(), 200).join('\n');
        for (const char* pDo : { "boot", "offline", "online", "fail-over", "project" }) {
            QVERIFY2(strDay.contains(QLatin1String(pDo)), pDo);
        }
    }

    void somethingHappensEveryFewSeconds()
    {
        const QStringList listStep = BuildDay(1, BuildSite(), 200);
        for (const QString& strStep : listStep) {
            const int nAfter = strStep.section(' ', 0, 0).toInt();
            QVERIFY(nAfter >= 1000 && nAfter <= 6000);
        }
    }

    void atTenTimesThePaceTheSameDayTakesATenth()
    {
        CNodeTree tree;
        tree.SetRoot(BuildSite());
        CDayGenerator day(1);
        CDayGenerator dayFast(1, 10.0);
        for (int n = 0; n < 200; ++n) {
            const SScenarioStep step = day.GetNext(tree);
            const SScenarioStep stepFast = dayFast.GetNext(tree);
            QCOMPARE(stepFast.strDo, step.strDo);
            QCOMPARE(stepFast.GetText("node"), step.GetText("node"));
            QCOMPARE(stepFast.nAt, qRound64(step.nAt / 10.0));
            QCOMPARE(stepFast.GetNumber("for", 0), step.GetNumber("for", 0) / 10.0);
        }
    }

    void aFasterPaceReachesTheDevices()
    {
        std::atomic<int> nSteps{ 0 }; // counted on the library's thread
        CControlFixture fixture;
        fixture.options.bQuietDay = true;
        fixture.options.dPace = 100.0;
        fixture.Start(BuildSite());
        connect(fixture.pHost.get(), &CControlHost::LifeStep, this, [&nSteps] { ++nSteps; }, Qt::DirectConnection);
        fixture.pHost->StartLife();
        QTRY_VERIFY(nSteps >= 20); // over a minute at the usual pace
    }

    void everyStepIsSound()
    {
        CNodeTree tree;
        tree.SetRoot(BuildSite());
        CDayGenerator day(1);
        for (int n = 0; n < 200; ++n) {
            SScenarioStep step = day.GetNext(tree);
            step.keys.insert("at", 0);
            step.keys.insert("do", step.strDo);
            QCOMPARE(ScenarioFaults::FindStepFault(step.keys), QString());
            QVERIFY(tree.FindProcessor(QUuid(step.GetText("node"))));
        }
    }

    void devicesComeBackWhenManyAreGone()
    {
        const SProcessorAllNode node = Root({}, { Processor("a").Online(), Processor("b"), Processor("c") });
        for (const QString& strStep : BuildDay(1, node, 50)) {
            QVERIFY2(strStep.contains(" online "), qPrintable(strStep));
        }
    }

    void anEmptyListHasNoDay()
    {
        QVERIFY(BuildDay(1, Root({}), 1).at(0).endsWith("  "));
    }

    void theDevicesLiveByThemselves()
    {
        CControlFixture fixture;
        fixture.options.bQuietDay = true;
        fixture.Start(BuildSite());
        fixture.pHost->StartLife();
        QVERIFY(fixture.recorder.Await(MessageDevicesChanged));
    }

    void withoutAQuietDayNothingHappens()
    {
        CControlFixture fixture;
        fixture.Start(BuildSite());
        fixture.pHost->StartLife();
        QCOMPARE(fixture.pHost->GetLifeTime(), qint64(0));
    }
};

PTV_TEST_MAIN_CORE(CQuietDayTest)
#include "tst_quietday.moc"
