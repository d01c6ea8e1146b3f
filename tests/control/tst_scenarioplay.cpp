#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"
#include "interfaces/control/SProjectInfo.h"

#include <QJsonDocument>
#include <QJsonObject>

using Check = std::function<bool(CControlHost&)>;
Q_DECLARE_METATYPE(Check)

/// A scenario while it is played.
class CScenarioPlayTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->options.strScenarioFile = pFixture->GetPath("day.json");
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aStepHasItsEffectAndIsTold_data()
    {
        using F = CControlFixture;
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<int>("nMessage");
        QTest::addColumn<Check>("check");
        const auto add = [](const char* pStep, int nMessage, const Check& check) {
            QTest::newRow(pStep) << QByteArray(pStep) << nMessage << check;
        };
        add(R"("do":"offline","node":"alpha")", 7, [](auto&) { return !F::GetProcessor("alpha").bOnline; });
        add(R"("do":"online","node":"loose")", 7, [](auto&) { return F::GetProcessor("loose").bOnline; });
        add(R"("do":"role","node":"alpha","role":"none")", 7, [](auto&) { return F::GetProcessor("alpha").nFailover == 0; });
        add(R"("do":"fail-over","node":"alpha")", 7,
            [](auto&) { return F::GetProcessor("alpha").nFailover == 2 && F::GetProcessor("beta").nFailover == 1; });
        add(R"("do":"fail-over","node":"loose","with":"beta")", 7,
            [](auto&) { return F::GetProcessor("loose").nFailover == 2 && F::GetProcessor("beta").nFailover == 0; });
        add(R"("do":"project","node":"loose","project":"New")", 7,
            [](auto&) { return F::GetProcessor("loose").strProject == "New"; });
        add(R"("do":"chief","group":"Stage","node":"beta")", 32, [](auto&) {
            return F::GetTree().listGroup.at(0).idChief == ProcessorId("beta") && F::GetProcessor("beta").nChief == 1;
        });
        add(R"("do":"chief-mode","on":true)", 32, [](auto&) { return g_pPreferenceControl->IsChiefMode(); });
        add(R"("do":"open-project","project":"Aurora")", 10, [](auto& host) { return host.GetProjectName() == "Aurora"; });
        add(R"("do":"lock","on":true)", 53, [](auto&) { return g_pPrcBasicControl->IsListLocked(); });
        add(R"("do":"block-refresh","on":true)", 53, [](auto&) { return g_pPrcBasicControl->IsRefreshBlocked(); });
        add(R"("do":"rename","node":"Hall","name":"Foyer")", 1, [](auto&) { return F::GetText().contains("\n  Foyer"); });
        add(R"("do":"move","node":"loose","group":"Hall")", 1, [](auto&) { return F::GetText().contains("Hall\n    loose"); });
        add(R"("do":"move","node":"beta")", 1, [](auto&) { return F::GetText().endsWith("  loose\n  beta"); });
        add(R"("do":"expand","on":false)", 1, [](auto&) { return !F::GetTree().bExpanded; });
        add(R"("do":"expand","node":"Stage","on":false)", 1, [](auto&) { return !F::GetTree().listGroup.at(0).bExpanded; });
        add(R"("do":"select","nodes":["loose","Stage"])", 9, [](auto&) {
            return g_pRuntimeControl->GetSelectedNodes(false) == std::vector<QUuid>{ ProcessorId("loose"), GroupId("Stage") };
        });
        add(R"("do":"pane","pane":"simulator")", 9, [](auto&) { return g_pRuntimeControl->IsSimulatorPane(); });
        add(R"("do":"add-group","name":"Foyer")", 1, [](auto&) { return F::GetText().contains("\n  Foyer"); });
        add(R"("do":"add-processor","ip":"10.0.0.9")", 1, [](auto&) { return F::GetText().contains("10.0.0.9"); });
        add(R"("do":"add-simulators","count":2)", 1, [](auto&) { return g_pPrcListControl->GetSimulatorCount() == 2; });
        add(R"("do":"delete","node":"loose")", 1, [](auto&) { return !F::GetText().contains("loose"); });
        add(R"("do":"delete","node":"Stage")", 1, [](auto&) { return !F::GetText().contains("alpha"); });
        add(R"("do":"appear","ip":"10.0.0.9","name":"New"},{"at":0.01,"do":"scan")", 1,
            [](auto&) { return F::GetText().endsWith("\n  New"); });
    }

    void aStepHasItsEffectAndIsTold()
    {
        QFETCH(QByteArray, step);
        QFETCH(int, nMessage);
        QFETCH(Check, check);
        Play("{\"at\":0," + step + '}');
        QTRY_VERIFY(check(*pFixture->pHost));
        QVERIFY(pFixture->recorder.Await(nMessage));
    }

    void nothingHappensBeforeTheLifeStarts()
    {
        pFixture->Write("day.json", R"({"steps":[{"at":0,"do":"chief-mode","on":true}]})");
        pFixture->Start();
        QCOMPARE(pFixture->pHost->GetLifeTime(), qint64(0));
        QVERIFY(!pFixture->pHost->IsChiefMode());
        int nFinished = 0;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::ScenarioFinished, &context, [&] { ++nFinished; });
        pFixture->pHost->StartLife();
        QTRY_COMPARE(nFinished, 1);
        QVERIFY(pFixture->pHost->IsChiefMode());
    }

    void stepsAreTakenInTheirOrderAndThenItIsFinished()
    {
        pFixture->Write("day.json", R"({"steps":[{"at":0.2,"do":"offline","node":"b"},{"at":0.1,"do":"offline","node":"a"}]})");
        pFixture->Start(Root({}, { Processor("a").Online(), Processor("b").Online() }));
        QStringList listStep;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::LifeStep, &context,
                [&](const QString& strLine) { listStep.append(strLine); });
        connect(pFixture->pHost.get(), &CControlHost::ScenarioFinished, &context, [&] { listStep.append("finished"); });
        pFixture->pHost->StartLife();
        QTRY_COMPARE(listStep, (QStringList{ "offline a", "offline b", "finished" }));
        QVERIFY(pFixture->pHost->GetLifeTime() >= 200);
    }

    void aStepIsToldByItsNodesNameAlsoWhenItGivesTheId()
    {
        const QByteArray id = ProcessorId("a").toByteArray();
        pFixture->Write("day.json", R"({"steps":[{"at":0,"do":"project","node":")" + id + R"(","project":"News"}]})");
        pFixture->Start(Root({}, { Processor("a").Online() }));
        QStringList listStep;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::LifeStep, &context,
                [&](const QString& strLine) { listStep.append(strLine); });
        pFixture->pHost->StartLife();
        QTRY_COMPARE(listStep, QStringList{ "project a News" });
    }

    void aBootEndsOnlineAgain()
    {
        Play(R"({"at":0,"do":"boot","node":"alpha","for":0.2})");
        QTRY_VERIFY(!CControlFixture::GetProcessor("alpha").bOnline);
        QTRY_VERIFY(CControlFixture::GetProcessor("alpha").bOnline);
    }

    void aStormChangesManyDevices()
    {
        Play(R"({"at":0,"do":"storm","rate":200,"for":0.2})");
        int nSteps = 0;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::LifeStep, &context, [&] { ++nSteps; });
        QTRY_VERIFY(nSteps >= 30);
        QVERIFY(pFixture->recorder.Await(MessageDevicesChanged));
    }

    void aStepWithoutItsNodeIsPassedOverAndTheRestGoesOn()
    {
        pFixture->Write("day.json",
                        R"({"steps":[{"at":0,"do":"offline","node":"nobody"},{"at":0,"do":"chief-mode","on":true}]})");
        pFixture->Start();
        QStringList listLogged;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::LogLine, &context,
                [&](const QString& strLine) { listLogged.append(strLine); });
        pFixture->pHost->StartLife();
        QTRY_VERIFY(pFixture->pHost->IsChiefMode());
        QTRY_COMPARE(listLogged.value(0), QString("The step \"offline\" was passed over: \"nobody\" is not in the list"));
    }

    void aFaultOfANodeThatCannotBeIsPassedOver_data()
    {
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<QString>("strFault");
        QTest::newRow("nobody flickers") << QByteArray(R"({"do":"flicker","node":"nobody"})") << "\"nobody\" is not in the list";
        QTest::newRow("a group has no role")
            << QByteArray(R"({"do":"flicker","node":"Stage","value":"role"})") << "a group has no \"role\"";
        QTest::newRow("with nobody") << QByteArray(R"({"do":"collide","node":"alpha","with":"nobody"})")
                                     << "\"nobody\" is not in the list";
        QTest::newRow("with itself") << QByteArray(R"({"do":"collide","node":"alpha","with":"alpha"})")
                                     << "these are not two nodes of one pane";
        QTest::newRow("with a simulator") << QByteArray(R"({"do":"collide","node":"alpha","with":"Simulator 1"})")
                                          << "these are not two nodes of one pane";
    }

    void aFaultOfANodeThatCannotBeIsPassedOver()
    {
        QFETCH(QByteArray, step);
        Play(R"({"at":0,"do":"add-simulators","count":1},{"at":0,"do":"chief-mode","on":true})");
        QTRY_VERIFY(pFixture->pHost->IsChiefMode());
        const SProcessorNode simulator = CControlFixture::GetTree(true).listProcessor.value(0);
        g_pPrcBasicControl->RenameProcessor(simulator.idNode, "Simulator 1");
        QTEST(pFixture->pHost->TakeFault(QJsonDocument::fromJson(step).object()), "strFault");
    }

    void aSlowDeviceDoesNotHoldUpTheRest()
    {
        pFixture->options.nAnswerMs = 600000;
        Play(R"({"at":0,"do":"add-processor","ip":"10.0.0.9"},{"at":0.01,"do":"chief-mode","on":true})");
        QTRY_VERIFY(pFixture->pHost->IsChiefMode());
        QVERIFY(!CControlFixture::GetText().contains("10.0.0.9"));
    }

    void aFaultyScenarioIsNotPlayed()
    {
        pFixture->Write("day.json", R"({"steps":[{"at":0,"do":"chief-mode","on":true},{"at":0,"do":"fly"}]})");
        pFixture->Start();
        QVERIFY(pFixture->pHost->GetScenarioError().startsWith(pFixture->GetPath("day.json") + ": step 2: "));
        int nFinished = 0;
        QObject context; // goes first, and with it what is still queued
        connect(pFixture->pHost.get(), &CControlHost::ScenarioFinished, &context, [&] { ++nFinished; });
        pFixture->pHost->StartLife();
        QTRY_COMPARE(nFinished, 1);
        QVERIFY(!pFixture->pHost->IsChiefMode());
    }

    void theEndDoesNotWaitForTheScenario()
    {
        Play(R"({"at":0,"do":"chief-mode","on":true},{"at":80000,"do":"scan"})");
        QTRY_VERIFY(pFixture->pHost->IsChiefMode());
        QCOMPARE(pFixture->pHost->GetInterfaceMarks().size(), 1);
        pFixture->Stop();
        QVERIFY(!g_pRuntimeControl);
    }

private:
    void Play(const QByteArray& steps)
    {
        pFixture->Write("day.json", "{\"steps\":[" + steps + "],\"ui\":[{\"at\":1}]}");
        pFixture->Start(Root(
            { Group("Stage",
                    { Processor("alpha").Online().Primary().Project("P"), Processor("beta").Online().Backup().Project("P") }),
              Group("Hall") },
            { Processor("loose") }));
        pFixture->pHost->StartLife();
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CScenarioPlayTest)
#include "tst_scenarioplay.moc"
