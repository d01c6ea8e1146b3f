#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/devices/CDeviceCommands.h"
#include "CorvidControl/devices/CSimulatedNetwork.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "nodes/EnNodeType.h"

#include <QElapsedTimer>

#include <thread>

/// The commands that need devices: they block as long as the device takes, and nothing else waits.
class CDevicesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aCommandBlocksAsLongAsTheDeviceTakes_data()
    {
        QTest::addColumn<int>("nCommand");
        QTest::newRow("refresh") << 0;
        QTest::newRow("add") << 1;
        QTest::newRow("delete") << 2;
        QTest::newRow("delete a group with its processors") << 3;
    }

    void aCommandBlocksAsLongAsTheDeviceTakes()
    {
        QFETCH(int, nCommand);
        StartSlow();
        QElapsedTimer timer;
        timer.start();
        if (nCommand == 0) {
            g_pPrcBasicControl->RefreshProcessors();
        } else if (nCommand == 1) {
            g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        } else if (nCommand == 2) {
            g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        } else {
            g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        }
        QVERIFY2(timer.elapsed() >= 245, qPrintable(QString::number(timer.elapsed())));
    }

    void theMembersOfAGroupLetGoAtTheSameTime()
    {
        SProcessorAllNode node = Root({ Group("Stage") });
        for (int n = 0; n < 200; ++n) {
            node.listGroup[0].listProcessor.append(Processor(QStringLiteral("p%1").arg(n)).Online());
        }
        pFixture->options.nReleaseMs = 250;
        pFixture->Start(node);
        QElapsedTimer timer;
        timer.start();
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QVERIFY2(timer.elapsed() < 25000, "one after another they take 50 seconds");
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
    }

    void dissolvingAGroupWaitsForNoDevice()
    {
        pFixture->options.nReleaseMs = 600000;
        pFixture->Start(Root({ Group("Stage", { Processor("alpha").Online() }), Group("Hall") }));
        QElapsedTimer timer;
        timer.start();
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        g_pPrcListControl->DeleteGroup(GroupId("Hall"), true);
        g_pPrcListControl->DeleteGroup(GroupId("Gone"), true);
        QVERIFY(timer.elapsed() < 60000);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  alpha"));
    }

    void aGroupDeletedTwiceAtOnceIsGoneWithoutARefusal()
    {
        StartSlow();
        std::thread other([] { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); });
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        other.join();
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  alpha"));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void whatIsNotDeletedAfterAllIsStillHeard_data()
    {
        QTest::addColumn<bool>("bRefused");
        QTest::newRow("it leaves the group meanwhile") << false;
        QTest::newRow("it runs a project that is opened meanwhile") << true;
    }

    void whatIsNotDeletedAfterAllIsStillHeard()
    {
        QFETCH(bool, bRefused);
        CMessageDispatcher dispatcher;
        CHostEvents events;
        CHostState host(dispatcher, events);
        CProcessorList processors(dispatcher, events, host, {});
        CJobs jobs;
        CSimulatedNetwork network({ {}, {}, {}, std::chrono::minutes(10) });
        CDeviceCommands commands(processors, jobs, network);
        network.SetListener([&](const SProcessorNode& device) { processors.ApplyReport(device); });
        processors.SetNetwork(network);
        processors.ReplaceList(Root({ Group("Stage", { Processor("alpha").Online().Project("Aurora") }) }));
        std::thread deletion([&] { commands.DeleteGroup(GroupId("Stage"), true); });
        QTRY_COMPARE(jobs.GetRunning().size(), 1);
        QSignalSpy progressed(&jobs, &CJobs::Progressed);
        bRefused ? host.SetProject("Aurora") : processors.MoveProcessor(ProcessorId("alpha"), QUuid());
        network.Stop(); // the devices let go at once
        deletion.join();
        QCOMPARE(progressed.last().at(0).value<QVector<SRunningJob>>().first().nDone, bRefused ? 0 : 1); // the group alone
        QVERIFY(processors.IsActive(ProcessorId("alpha")));
        network.SetOnline(ProcessorId("alpha"), false);
        QVERIFY(!processors.IsActive(ProcessorId("alpha")));
        QCOMPARE(processors.GetNodeType(ProcessorId("alpha")), int(NodeProcessor));
    }

    void readsGoOnWhileACommandBlocks()
    {
        pFixture->options.nScanMs = 600000;
        pFixture->Start(Root({}, { Processor("alpha") }));
        std::thread scan([] { g_pPrcBasicControl->RefreshProcessors(); });
        QTRY_COMPARE(pFixture->pHost->GetRunningJobs(), QStringList{ "Scanning the network" });
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  alpha"));
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QVERIFY(pFixture->recorder.Await(MessageListChanged));
        pFixture->Stop(); // ends the scan
        scan.join();
    }

    void aScanSaysHowManyDevicesItHasAsked()
    {
        pFixture->options.nUnlistedDevices = 6;
        pFixture->Start(Root({}, { Processor("alpha"), Processor("beta") }));
        const QVector<SRunningJob> vecJob = RecordProgress([] { g_pPrcBasicControl->RefreshProcessors(); });
        QVERIFY(vecJob.size() > 3);
        for (int n = 0; n < vecJob.size(); ++n) {
            QCOMPARE(vecJob.at(n).strJob, QString("Scanning the network"));
            QCOMPARE(vecJob.at(n).nAll, 8);
            QVERIFY(n == 0 || vecJob.at(n).nDone >= vecJob.at(n - 1).nDone);
        }
        QCOMPARE(vecJob.last().nDone, 8);
    }

    void aJobOfDeletionsSaysHowManyItHasDeleted()
    {
        pFixture->Start(Root({}, { Processor("alpha"), Processor("beta"), Processor("gamma"), Processor("delta") }));
        const auto remove = [](const QString& strName) { g_pPrcListControl->DeleteProcessor(ProcessorId(strName), false); };
        g_pRuntimeControl->SetBusy(true);
        remove("alpha");
        const SRunningJob job = RecordProgress([&] { remove("beta"); }).last();
        QCOMPARE(job.nDone, 2);
        QCOMPARE(job.nAll, 0);
        g_pRuntimeControl->SetBusy(false);
        QCOMPARE(RecordProgress([&] { remove("gamma"); }).last().nDone, 1);
        QCOMPARE(RecordProgress([&] { remove("delta"); }).last().nDone, 1);
    }

    void aGroupThatIsDeletedSaysOfHowMany()
    {
        pFixture->Start(Root({ Group("Stage", { Processor("alpha"), Processor("beta") }) }));
        const QVector<SRunningJob> vecJob = RecordProgress([] { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); });
        QCOMPARE(vecJob.first().nDone, 0);
        QCOMPARE(vecJob.last().nDone, 3);
        QCOMPARE(vecJob.last().nAll, 3);
    }

    void aProcessorThatIsAddedIsNoneOfOne()
    {
        pFixture->Start();
        const QVector<SRunningJob> vecJob = RecordProgress([] { g_pPrcBasicControl->AddProcessor(0xC0A8010A); });
        QCOMPARE(vecJob.size(), 1);
        QCOMPARE(vecJob.first().nDone, 0);
        QCOMPARE(vecJob.first().nAll, 1);
        QVERIFY(vecJob.first().timeSince.isValid());
        QVERIFY(pFixture->pHost->GetJobProgress().isEmpty());
    }

    void anAddressThatAnswersIsAddedToTheRoot()
    {
        pFixture->Start(Root({ Group("Stage") }));
        g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        const SProcessorNode processor = CControlFixture::GetTree().listProcessor.at(0);
        QCOMPARE(processor.strName, QString("Processor 192.168.1.10"));
        QCOMPARE(processor.nIP, 0xC0A8010AU);
        QVERIFY(processor.bOnline);
        QCOMPARE(processor.strType, g_pPrcBasicControl->GetTypeName(processor.nModel));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void theSameAddressGivesTheSameProcessorAgain()
    {
        pFixture->Start();
        g_pPrcBasicControl->AddProcessor(0x0A000001);
        const SProcessorNode first = CControlFixture::GetTree().listProcessor.at(0);
        g_pPrcListControl->DeleteProcessor(first.idNode, false);
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        g_pPrcBasicControl->AddProcessor(0x0A000001);
        QCOMPARE(CControlFixture::GetTree().listProcessor.at(0), first);
    }

    void anAddressThatCannotBeAddedIsRefused_data()
    {
        QTest::addColumn<quint32>("nIP");
        QTest::addColumn<QString>("strReason");
        QTest::newRow("nothing answers") << 0x08080808U << "nothing answers there";
        QTest::newRow("in the list") << 0xC0A80114U << "a processor of the list has this address";
        QTest::newRow("reserved") << 0xC0A80101U << "the address is reserved";
        QTest::newRow("this machine") << 0xC0A80102U << "the address is reserved";
    }

    void anAddressThatCannotBeAddedIsRefused()
    {
        QFETCH(quint32, nIP);
        QFETCH(QString, strReason);
        pFixture->Start(Root({}, { Processor("alpha").Ip("192.168.1.20") }));
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        g_pPrcBasicControl->AddProcessor(nIP);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  alpha"));
        QVERIFY2(logged.value(0).value(0).toString().endsWith(strReason), qPrintable(logged.value(0).value(0).toString()));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
    }

    void twoRequestsForOneAddressAddOneProcessor()
    {
        pFixture->options.nAnswerMs = 100;
        pFixture->Start();
        std::thread other([] { g_pPrcBasicControl->AddProcessor(0xC0A8010A); });
        g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        other.join();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Processor 192.168.1.10"));
    }

    void aScanFindsUnlistedDevices()
    {
        pFixture->options.nUnlistedDevices = 2;
        pFixture->Start(Root({}, { Processor("alpha") }));
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  alpha\n  Newcomer 1\n  Newcomer 2"));
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetTree().listProcessor.size(), 3);
    }

    void aScanLeavesAListWithoutNewcomersAsItIs()
    {
        pFixture->Start(Root({ Group("Stage", { Processor("alpha").Online() }) }, { Processor("beta") }));
        const SProcessorAllNode before = CControlFixture::GetTree();
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetTree().listGroup, before.listGroup);
        QCOMPARE(CControlFixture::GetTree().listProcessor, before.listProcessor);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>());
    }

    void aScanStopsAtTheLimit()
    {
        SProcessorAllNode node;
        for (int n = 0; n < 255; ++n) {
            node.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        pFixture->options.nUnlistedDevices = 3;
        pFixture->Start(node);
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetTree().listProcessor.size(), 256);
    }

    void aBlockedRefreshScansNothing()
    {
        pFixture->options.nUnlistedDevices = 1;
        pFixture->Start();
        pFixture->pHost->SetRefreshBlocked(true);
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
    }

    void simulatorsAreAddedToTheirPane()
    {
        pFixture->Start();
        g_pPrcBasicControl->AddSimulators({ 12, 2, 3 });
        QCOMPARE(CControlFixture::GetText(true), QString("all*\n  Simulator 1\n  Simulator 2"));
        QCOMPARE(CControlFixture::GetText(false), QString("all*"));
        QCOMPARE(g_pPrcListControl->GetSimulatorCount(), 2);
        QVERIFY(CControlFixture::GetProcessor("Simulator 1", true).bOnline);
        QVERIFY(CControlFixture::GetProcessor("Simulator 1", true).nPortA
                != CControlFixture::GetProcessor("Simulator 2", true).nPortA);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void moreThanTwoSimulatorsAreRefused_data()
    {
        QTest::addColumn<int>("nPresent");
        QTest::addColumn<int>("nType");
        QTest::addColumn<int>("nCount");
        QTest::addColumn<int>("nOutput");
        QTest::newRow("three at once") << 0 << 12 << 3 << 3;
        QTest::newRow("two more") << 1 << 12 << 2 << 3;
        QTest::newRow("one too many") << 2 << 12 << 1 << 3;
        QTest::newRow("none") << 0 << 12 << 0 << 3;
        QTest::newRow("a type that is not there") << 0 << 0xFF00 << 1 << 3;
        QTest::newRow("an output that is not there") << 0 << 12 << 1 << 4;
    }

    void moreThanTwoSimulatorsAreRefused()
    {
        QFETCH(int, nPresent);
        QFETCH(int, nType);
        QFETCH(int, nCount);
        QFETCH(int, nOutput);
        pFixture->Start();
        for (int n = 0; n < nPresent; ++n) {
            g_pPrcBasicControl->AddSimulators({ 12, 1, 2 });
        }
        pFixture->recorder.Clear();
        g_pPrcBasicControl->AddSimulators({ nType, nCount, nOutput });
        QCOMPARE(g_pPrcListControl->GetSimulatorCount(), nPresent);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
    }

    void twoThatAddSimulatorsAtOnceGiveThemTwoNames()
    {
        pFixture->options.nReleaseMs = 0;
        pFixture->Start();
        for (int n = 0; n < 100; ++n) {
            std::atomic<int> nReady{ 0 };
            const auto add = [&] {
                ++nReady;
                while (nReady < 2) { }
                g_pPrcBasicControl->AddSimulators({ 12, 1, 3 });
            };
            std::thread other(add);
            add();
            other.join();
            const QList<SProcessorNode> listSimulator = CControlFixture::GetTree(true).listProcessor;
            QCOMPARE(listSimulator.size(), 2);
            QVERIFY2(listSimulator.at(0).strName != listSimulator.at(1).strName, qPrintable(QString::number(n)));
            for (const SProcessorNode& simulator : listSimulator) {
                g_pPrcListControl->DeleteProcessor(simulator.idNode, false);
            }
        }
    }

    void ofTwoEqualJobsTheOneThatEndsIsGone()
    {
        CJobs jobs;
        const int nFirst = jobs.Begin("a scan");
        const int nSecond = jobs.Begin("a scan");
        jobs.SetProgress(nSecond, 3, 4);
        QCOMPARE(jobs.GetProgress().at(0).nDone, 0);
        QCOMPARE(jobs.GetProgress().at(1).nDone, 3);
        jobs.End(nSecond);
        QCOMPARE(jobs.GetProgress().size(), 1);
        QCOMPARE(jobs.GetProgress().at(0).nDone, 0);
        jobs.End(nFirst);
        QCOMPARE(jobs.GetRunning(), QStringList());
    }

    void aDeletedSimulatorLeavesItsNumberFree()
    {
        pFixture->Start();
        g_pPrcBasicControl->AddSimulators({ 12, 2, 3 });
        g_pPrcListControl->DeleteProcessor(CControlFixture::GetProcessor("Simulator 1", true).idNode, false);
        g_pPrcBasicControl->AddSimulators({ 22, 1, 3 });
        QCOMPARE(CControlFixture::GetText(true), QString("all*\n  Simulator 2\n  Simulator 1"));
    }

    void simulatorsAreNotFoundByAScan()
    {
        pFixture->Start();
        g_pPrcBasicControl->AddSimulators({ 12, 2, 3 });
        pFixture->recorder.Clear();
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetText(false), QString("all*"));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>());
    }

    void theReservedAddressesAndTheOwnAreKnown()
    {
        pFixture->Start();
        QList<uint> listIP{ 1 };
        g_pConfigControl->GetReservedIPs(listIP);
        QCOMPARE(listIP, (QList<uint>{ 1, 0xC0A80101, 0xC0A801FE }));
        QCOMPARE(g_pPrcBasicControl->GetLocalAddress().nIP, 0xC0A80102U);
    }

    void typesHaveNames()
    {
        pFixture->Start();
        QCOMPARE(g_pPrcBasicControl->GetTypeName(12), QString("C12"));
        QCOMPARE(g_pPrcBasicControl->GetTypeName(99), QString("Type 99"));
    }

    void theEndDoesNotWaitForDevices()
    {
        StartSlow();
        std::thread add([] { g_pPrcBasicControl->AddProcessor(0x08080808); });
        QTRY_COMPARE(pFixture->pHost->GetRunningJobs().size(), 1);
        QElapsedTimer timer;
        timer.start();
        pFixture->Stop();
        add.join();
        QVERIFY(timer.elapsed() < 60000);
    }

private:
    // The first job that runs, each time that it got further.
    QVector<SRunningJob> RecordProgress(const std::function<void()>& command)
    {
        QVector<SRunningJob> vecJob;
        QObject context;
        connect(
            pFixture->pHost.get(), &CControlHost::JobProgressed, &context,
            [&](const QVector<SRunningJob>& vecNow) { vecJob.append(vecNow.first()); }, Qt::DirectConnection);
        command();
        return vecJob;
    }

    void StartSlow()
    {
        pFixture->options.nScanMs = pFixture->options.nAnswerMs = pFixture->options.nReleaseMs = 250;
        pFixture->options.nTimeoutMs = 600000;
        pFixture->Start(
            Root({ Group("Stage", { Processor("beta").Online(), Processor("gamma") }) }, { Processor("alpha").Online() }));
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CDevicesTest)
#include "tst_devices.moc"
